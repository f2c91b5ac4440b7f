"""An archive of Bases as docs/archive-format.md describes it: its files, its listing, its titles, what a save leaves.

This is written from that page and not from the library, so that the two can be held against each other. It uses the
standard library alone. File names and texts are bytes throughout.
"""

import os
import re
import stat
import struct
from dataclasses import dataclass

SIGNATURE = bytes.fromhex('AF93B657')
VERSION = bytes.fromhex('0101')
HEADER = struct.Struct('<4s2s129s3sh2s18sh128s')
LAST_NUMBER = 99999
MOST_EMPTY_COLUMNS = 1 << 20
WINDOWS_1252 = [bytes([byte]).decode('cp1252', 'replace') for byte in range(256)]


class Refused(Exception):
    """Bytes that are not what the page describes."""


@dataclass
class Variant:
    """One file, field by field. number is counted from 0."""

    base: bytes
    tag: bytes = b''
    number: int = 0
    name: bytes = b''
    comment: bytes = b''
    data: bytes = b''

    def encode(self):
        for text, most in ((self.base, 128), (self.tag, 2), (self.name, 16), (self.comment, 32767)):
            if len(text) > most:
                raise ValueError(f'{text!r} has more than {most} bytes')
        header = HEADER.pack(SIGNATURE, VERSION, self.base, self.tag, self.number, b'', self.name, len(self.comment),
                             b'')
        return header + self.comment + self.data


@dataclass
class Header:
    """The first 290 bytes, whatever they say until they are checked."""

    signature: bytes
    version: bytes
    base_field: bytes
    tag_field: bytes
    number: int
    name_field: bytes
    comment_length: int

    @classmethod
    def read(cls, content):
        if len(content) < HEADER.size:
            raise Refused('the header is not whole')
        signature, version, base, tag, number, _, name, length, _ = HEADER.unpack_from(content)
        return cls(signature, version, base, tag, number, name, length)

    def check_fields(self):
        text(self.base_field)
        text(self.tag_field)
        text(self.name_field)
        if self.comment_length < 0:
            raise Refused('a negative length of the comment')

    def check_listed(self):
        if (self.signature, self.version) != (SIGNATURE, VERSION):
            raise Refused('another signature or version')
        if not text(self.base_field):
            raise Refused('no name of a Base')

    def variant(self, content):
        end = HEADER.size + self.comment_length
        return Variant(text(self.base_field), text(self.tag_field), self.number, text(self.name_field),
                       content[HEADER.size:end], content[end:])


def text(field):
    """What a field says up to its zero, which has to be there."""
    content, zero, _ = field.partition(b'\0')
    if not zero:
        raise Refused('a text without an end')
    return content


def shown(content):
    """A text as people see it."""
    try:
        return content.decode('utf-8')
    except UnicodeDecodeError:
        return ''.join(WINDOWS_1252[byte] for byte in content)


def listed(content):
    """The variant that a listing shows for a file of these bytes, or Refused."""
    header = Header.read(content)
    header.check_fields()
    header.check_listed()
    return header.variant(content)


def shown_comment(variant):
    """What a listing tells of a comment: what the file has of it, up to the first zero."""
    return variant.comment.partition(b'\0')[0]


def opened(content):
    """The variant that an open by path reads from these bytes, or Refused."""
    if not content:
        return Variant(b'', number=-1)
    header = Header.read(content)
    header.check_fields()
    if HEADER.size + header.comment_length > len(content):
        raise Refused('a comment beyond the end')
    return header.variant(content)


def title_of(file_name, extension):
    """The title in the name of a file, or None if a listing does not look at it."""
    title, dot, last = file_name.rpartition(b'.')
    hidden = file_name.startswith(b'.')
    return title if dot and last == extension and 1 <= len(title) <= 8 and not hidden else None


def number_of(title):
    """The number in a title, or None."""
    number = re.match(rb'[ \t\n\v\f\r]*([+-]?[0-9]+)', title[3:])
    return int(number[1]) if number else None


def listing(folder, extension):
    """The variants of an archive as pairs of title and Variant, by Base, number and title."""
    found = []
    for file_name in os.listdir(folder):
        title = title_of(file_name, extension)
        path = os.path.join(folder, file_name)
        if title is None or not stat.S_ISREG(os.lstat(path).st_mode):
            continue
        try:
            with open(path, 'rb') as file:
                found.append((title, listed(file.read())))
        except (Refused, OSError):
            continue
    return sorted(found, key=lambda entry: (entry[1].base, entry[1].number, entry[0]))


def next_title(folder, extension):
    """The title that the next new variant gets, or None where all are taken."""
    numbers = [number_of(title) for title, _ in listing(folder, extension)]
    highest = max((number for number in numbers if number is not None), default=0)
    for number in (*range(highest + 1, LAST_NUMBER + 1), *range(1, highest + 1)):
        title = b'bas%05d' % number
        if not os.path.lexists(os.path.join(folder, title + b'.' + extension)):
            return title
    return None


def saved_new(variant):
    """The bytes of a file after a save under a new title, or in place of another variant that the user has chosen."""
    zero = b'\0' if variant.comment and not variant.data else b''
    return variant.encode() + zero


def saved_again(old, data):
    """The bytes of a file after a save of a document into the file from which it comes."""
    front = HEADER.size + len(opened(old).comment)
    new = old[:front].ljust(front if data else 0, b'\0') + data
    return new + old[len(new):]


def is_unfinished(file_name):
    """Whether the next save in a folder removes a plain file of this name."""
    return re.fullmatch(rb'\.tessara-[0-9a-f]{16}', file_name) is not None


def read_switches(data, position=0):
    """The switches that stand at a position, and the position behind them."""
    count, position = read_ints(data, position, 1)
    if count[0] < 0:
        raise Refused('a negative number of switches')
    return read_ints(data, position, count[0])


def read_multicurve(data, position=0):
    """A multi-curve as abscissae and columns of ordinates, and the position behind it."""
    (columns, points), position = read_ints(data, position, 2)
    if columns < 0 or points < 0:
        raise Refused('a negative number of columns or points')
    if points == 0 and columns > MOST_EMPTY_COLUMNS:
        raise Refused('columns without end')
    if points == 0:
        return ([], [[] for _ in range(columns)]), position
    values, position = read_packed(data, position, 'd', points * (columns + 1))
    rows = [list(values[first:first + points]) for first in range(0, len(values), points)]
    return (rows[0], rows[1:]), position


def read_ints(data, position, count):
    return read_packed(data, position, 'i', count)


def read_packed(data, position, kind, count):
    if count * struct.calcsize('<' + kind) > len(data) - position:
        raise Refused('data that end too early')
    layout = struct.Struct(f'<{count}{kind}')
    return layout.unpack_from(data, position), position + layout.size


def pack_switches(switches):
    return struct.pack(f'<i{len(switches)}i', len(switches), *switches)


def pack_multicurve(abscissae, columns):
    values = [*abscissae, *(value for column in columns for value in column)]
    return struct.pack(f'<ii{len(values)}d', len(columns), len(abscissae), *values)
