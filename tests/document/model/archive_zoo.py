"""Folders of random files for an archive: variants of all sizes, and whatever else may lie between them."""

import os
import socket

import archive_model as model

EXTENSION = b'bva'
SYLLABLES = [b'PS', b'-', b'CH', b' ', b'a', b'Z', b'\xc3\xa9', b'\xe2\x82\xac', b'\xe9', b'\x80', b'\x81', b'\xff',
             b'\n', b'%s', b'"']
BASES = [b'PS-CH', b'ps-ch', b'PS', b'PE', b'\xc3\xa9', b'\xe9', b'x' * 128]
NUMBERS = [0, 1, 2, 3, 255, 256, 32767, -1, -32768]


def text(random, most):
    """A text of any length up to most bytes, mostly short, and without a zero."""
    length = random.choice([0, 1, most, random.randint(0, most), random.randint(0, min(most, 8))])
    content = b''
    while len(content) < length:
        content += random.choice(SYLLABLES)
    return content[:length]


def comment(random):
    kind = random.randrange(20)
    if kind == 0:
        return random.randbytes(random.choice([32767, random.randint(0, 32767)]))
    return b'' if kind < 8 else text(random, 40)


def data(random):
    large = random.randrange(40) == 0
    return random.randbytes(random.randint(4000, 70000) if large else random.choice([0, 1, random.randint(0, 300)]))


def variant(random):
    base = random.choice(BASES) if random.random() < 0.7 else text(random, 128)
    number = random.choice(NUMBERS) if random.random() < 0.7 else random.randint(-32768, 32767)
    return model.Variant(base, text(random, 2), number, text(random, 16), comment(random), data(random))


def switches(random):
    return model.pack_switches(random.choices([0, 1, 7, -1], k=random.randrange(5)))


def multicurve(random):
    columns, points = random.randrange(4), random.randrange(4)
    values = [0.0, -0.0, 1.5, -1e300, float('inf'), float('nan'), 5e-324]
    abscissae, *ordinates = [random.choices(values, k=points) for _ in range(1 + columns)]
    return model.pack_multicurve(abscissae, ordinates)


def damaged_record(random, content):
    """A record, half of them with other counts, an end that comes too early, or something behind it."""
    content = bytearray(content)
    random.choice([
        lambda: content.extend(b'more'), lambda: content.__delitem__(slice(random.randrange(len(content)), None)),
        lambda: content.__setitem__(slice(0, 4), random.randint(-3, 5).to_bytes(4, 'little', signed=True)),
        lambda: content.__setitem__(slice(4, 8), random.randint(-3, 5).to_bytes(4, 'little', signed=True)),
        lambda: content.__setitem__(random.choice([3, 7]) % len(content), random.randrange(256)),
        *[lambda: None] * 5])()
    return bytes(content)


def title(random):
    number = random.randint(0, 40)
    return random.choice([
        b'bas%05d' % number, b'bas%05d' % number, b'bas%05d' % number, b'bas%05d' % random.randint(0, 3000),
        b'bas99999' if random.random() < 0.1 else b'bas%d' % number, b'%s%d' % (text(random, 3), number * 99),
        b'bas' + random.choice([b'', b'+7', b'-7', b' 7', b'\t7', b'7x', b'x7', b'7.5', b'0x10', b'007', b'1e3']),
        b'curves', b'.b', b'..', b'a.b', b'.tessara', b'x' * random.randint(1, 9),
        b'\xc3\xa9' * random.randint(1, 8), b'e\n', text(random, 8) or b'a', b''])


def file_name(random):
    last = random.choice([EXTENSION] * 12 + [EXTENSION.upper(), b'bv', b'bvax', b'bva.bak', b'bva ', b''])
    dot = b'.' if last or random.random() < 0.5 else b''
    return title(random) + dot + last


def damaged(random, content):
    """A variant's bytes with something about them that need not be right."""
    content = bytearray(content)

    def put(offset, change):
        content[offset:offset + len(change)] = change

    random.choice([
        lambda: put(random.randrange(6), random.randbytes(1)),
        lambda: put(0, b'\x57\xb6\x93\xaf'), lambda: put(4, b'\x00\x01'), lambda: put(4, b'\x01\x02'),
        lambda: put(6, b'x' * 129), lambda: put(6, b'\0'), lambda: put(135, b'xyz'), lambda: put(142, b'y' * 18),
        lambda: put(142, b'y' * 17 + b'\0'), lambda: put(6, b'ab\0rest\0'), lambda: put(160, b'\xff\xff'),
        lambda: put(160, b'\x00\x80'), lambda: put(160, random.randbytes(2)),
        lambda: put(160, (len(content) - 290 + random.choice([-1, 0, 1])).to_bytes(4, 'little', signed=True)[:2]),
        lambda: put(140, random.randbytes(2)), lambda: put(162, random.randbytes(128)),
        lambda: put(random.randrange(len(content)), random.randbytes(1)),
        lambda: content.__delitem__(slice(random.randrange(len(content)), None)),
        lambda: content.__delitem__(slice(random.randint(288, 292), None)), content.clear])()
    return bytes(content)


def put(random, folder):
    """Puts one thing into a folder, whatever lies there under its name."""
    path = os.path.join(folder, file_name(random))
    if os.path.lexists(path) or path.rstrip(b'./') == folder.rstrip(b'/') or path.endswith(b'/..'):
        return
    kind = random.randrange(30)
    if kind == 0:
        ends = [b'bas00001.bva', b'none', os.path.basename(path), b'..', b'/dev/null', b'../none/x']
        os.symlink(random.choice(ends), path)
    elif kind == 1:
        random.choice([os.mkfifo, os.mkdir, bind])(path)
    else:
        content = variant(random).encode()
        write(path, damaged(random, content) if kind < 12 else content)
        if kind in (2, 3):
            os.chmod(path, 0 if kind == 2 else 0o444)


def bind(path):
    # An address has no more than about a hundred bytes, so it goes by the name in the folder.
    before = os.getcwd()
    os.chdir(os.path.dirname(path))
    with socket.socket(socket.AF_UNIX) as end:
        end.bind(os.path.basename(path))
    os.chdir(before)


def fill(random, folder, count):
    for _ in range(count):
        put(random, folder)
    for end in (b'0123456789abcdef', b'0123456789abcde', b'0123456789ABCDEF', b'x.bva'):
        if random.random() < 0.3:
            write(os.path.join(folder, b'.tessara-' + end), variant(random).encode()[:random.randrange(600)])


def write(path, content):
    with open(path, 'wb') as file:
        file.write(content)


def clear(folder):
    for name in os.listdir(folder):
        path = os.path.join(folder, name)
        if os.path.isdir(path) and not os.path.islink(path):
            os.rmdir(path)
        else:
            os.unlink(path)


def contents(folder):
    """All that is in a folder: what a file holds, or what kind of thing it is."""
    found = {}
    for name in os.listdir(folder):
        path = os.path.join(folder, name)
        if os.path.islink(path):
            found[name] = b'-> ' + os.readlink(path)
        elif os.path.isfile(path) and os.access(path, os.R_OK):
            with open(path, 'rb') as file:
                found[name] = file.read()
        else:
            found[name] = None
    return found
