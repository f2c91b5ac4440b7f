"""Holds the library against the model of its archive: compare_library.py DRIVER DOCUMENT_TEST COMMAND [test...]

TESSARA_MODEL_FILES says with how many random files, TESSARA_MODEL_SEED which ones, and TESSARA_MODEL_SAVES how many new
variants each of several processes saves. With 10000 files each value of each byte of a header is tried, too.
"""

import os
import random
import subprocess
import sys
import tempfile
import unittest
from concurrent.futures import ThreadPoolExecutor

import archive_model as model
import archive_zoo as zoo
from archive_zoo import EXTENSION
from library import Command, Driver, as_plain_user, decode, encode

FILES = int(os.environ.get('TESSARA_MODEL_FILES', 300))
SEED = int(os.environ.get('TESSARA_MODEL_SEED', 1))
SAVES = int(os.environ.get('TESSARA_MODEL_SAVES', 25))
FILES_OF_A_FOLDER = 60
CHANGES = bytes(range(1, 256)) if FILES >= 10000 else bytes([1, 2, 4, 8, 16, 32, 64, 128, 255])
PROCESSES = 8
SMALL = model.Variant(b'PS-CH', b'ab', 3, b'first', b'notes', b'data')


class Library(unittest.TestCase):
    driver_path = None
    test_path = None
    command_path = None

    def setUp(self):
        room = tempfile.TemporaryDirectory(prefix='model')
        self.addCleanup(room.cleanup)
        self.room = room.name
        self.environment = dict(os.environ, HOME=room.name, XDG_CONFIG_HOME=room.name, XDG_DATA_HOME=room.name,
                                TEST_TMPDIR=room.name, QT_QPA_PLATFORM='offscreen')
        self.driver = self.new_driver()
        self.command = Command(self.command_path, EXTENSION, self.environment)
        self.folder = os.fsencode(room.name) + b'/archive/'
        os.mkdir(self.folder)
        self.random = random.Random(SEED)

    def new_driver(self):
        driver = Driver(self.driver_path, self.environment)
        self.addCleanup(lambda: self.assertEqual(driver.close(), 0))
        return driver

    def path(self, name):
        return self.folder + name

    def same(self, found, expected):
        """Fails with the keys at which two dictionaries differ."""
        differing = [f'{key}: {found.get(key)!r:.300} instead of {expected.get(key)!r:.300}'
                     for key in sorted({*found, *expected}) if found.get(key) != expected.get(key)]
        self.assertEqual('\n'.join(differing)[:2000], '')

    # What is there

    def check_listing(self):
        found = self.driver.ask('list', self.folder, EXTENSION)
        expected = [entry_words(title, variant) for title, variant in model.listing(self.folder, EXTENSION)]
        self.same({entry[0]: entry for entry in found}, {entry[0]: entry for entry in expected})
        self.assertEqual([entry[0] for entry in found], [entry[0] for entry in expected])

    def check_command(self, archive):
        """Compares what the command lists, and returns what there is."""
        expected = model.listing(archive, EXTENSION)
        self.assertEqual(self.command.list(archive),
                         [{'base': model.shown(variant.base), 'number': variant.number + 1,
                           'name': model.shown(variant.name), 'tag': model.shown(variant.tag),
                           'title': model.shown(title)} for title, variant in expected])
        return expected

    def expected_opening(self, name):
        path = self.path(name)
        if not os.path.isfile(path) or not os.access(path, os.R_OK):
            return None
        try:
            return model.opened(read(path))
        except model.Refused:
            return None

    def check_opening(self, name):
        expected = self.expected_opening(name)
        opened = self.driver.ask('open', self.path(name))
        document = self.driver.ask('document', self.path(name))
        if expected is None:
            self.assertEqual(opened, [])
            self.assertEqual(document, [['0', '77', encode(b'mine')]])
        else:
            self.assertEqual(opened, [opening_words(expected)])
            self.assertEqual(document, [['1', *opening_words(expected)[1:]]])

    # What is done to it

    def save_again(self, name):
        """Saves a document of random data into a file, or tries to."""
        data = zoo.data(self.random)
        expected = zoo.contents(self.folder)
        can_be_saved = self.expected_opening(name) is not None and os.access(self.path(name), os.W_OK)
        if can_be_saved:
            end = os.path.basename(os.path.realpath(self.path(name)))
            expected = {**without_unfinished(expected), end: model.saved_again(expected[end], data)}
        self.assertEqual(self.driver.ask('save', self.path(name), data), [[str(int(can_be_saved))]])
        self.same(zoo.contents(self.folder), expected)

    def save_chosen(self, command, title):
        """Saves a new document where a wizard has led to."""
        new = zoo.variant(self.random)
        expected = without_unfinished(zoo.contents(self.folder))
        name = (title or model.next_title(self.folder, EXTENSION)) + b'.' + EXTENSION
        expected[name] = model.saved_new(new)
        answer = self.driver.save(command, (self.folder, EXTENSION, title), new)
        self.assertEqual(answer, [['1', encode(name)]])
        self.same(zoo.contents(self.folder), expected)

    def save_new_and_over(self):
        self.save_chosen('create', b'')
        titles = [title for title, _ in model.listing(self.folder, EXTENSION)
                  if os.access(self.path(title + b'.' + EXTENSION), os.W_OK)]
        if titles:
            self.save_chosen('replace', self.random.choice(titles))

    def delete_base(self):
        entries = model.listing(self.folder, EXTENSION)
        if not entries:
            return
        bases = sorted({variant.base for _, variant in entries})
        line = self.random.randrange(len(bases))
        gone = {title + b'.' + EXTENSION for title, variant in entries if variant.base == bases[line]}
        expected = {name: content for name, content in zoo.contents(self.folder).items() if name not in gone}
        self.driver.ask('delete', self.folder, EXTENSION, line)
        self.same(zoo.contents(self.folder), expected)

    def test_random_folders(self):
        for number in range(FILES // FILES_OF_A_FOLDER):
            with self.subTest(seed=SEED + number):
                self.random.seed(SEED + number)
                zoo.clear(self.folder)
                zoo.fill(self.random, self.folder, FILES_OF_A_FOLDER)
                self.check_listing()
                self.check_command(self.folder)
                for name in sorted(os.listdir(self.folder)):
                    with self.subTest(name=name):
                        self.check_opening(name)
                for name in self.random.sample(sorted(os.listdir(self.folder)), 8):
                    self.save_again(name)
                for _ in range(3):
                    self.save_new_and_over()
                self.delete_base()
                self.check_listing()

    # Damaged files

    def test_changed_bytes(self):
        """Each byte of a header changed: what is listed and opened."""
        whole = SMALL.encode()
        zoo.write(self.path(b'bas00001.' + EXTENSION), whole)
        found = self.driver.ask('bytes', self.folder, EXTENSION, b'bas00001', CHANGES)
        expected = [line for offset in range(model.HEADER.size) for change in CHANGES
                    for line in verdicts(whole, offset, whole[offset] ^ change)]
        self.assertEqual([pair for pair in zip(found, expected) if pair[0] != pair[1]][:5], [])
        self.assertEqual(len(found), len(expected))

    def test_truncations(self):
        """Each length of a small file: what is listed and opened, and that a document stays where it is not."""
        whole = SMALL.encode()
        name = b'bas00001.' + EXTENSION
        for length in range(len(whole) + 1):
            with self.subTest(length=length):
                zoo.write(self.path(name), whole[:length])
                self.check_listing()
                self.check_opening(name)

    def test_records(self):
        """Switches and multi-curves, whole and damaged."""
        for _ in range(FILES):
            items = self.random.randrange(5)
            record = zoo.damaged_record(self.random, zoo.switches(self.random))
            with self.subTest(switches=record):
                found = self.driver.ask('switches', items, record)
                self.assertEqual(found, answer_to(model.read_switches, record, lambda switches:
                                                  model.pack_switches([*switches, *[0] * items][:items])))
            record = zoo.damaged_record(self.random, zoo.multicurve(self.random))
            with self.subTest(curve=record):
                found = self.driver.ask('curve', record)
                self.assertEqual(found, answer_to(model.read_multicurve, record, lambda curve:
                                                  model.pack_multicurve(*curve)))

    # Several programs

    def test_processes(self):
        """Several processes save new variants while two list them."""
        with ThreadPoolExecutor(PROCESSES + 2) as pool:
            savers = [pool.submit(self.save_many, self.new_driver(), process) for process in range(PROCESSES)]
            listers = [pool.submit(self.list_until_done, self.new_driver(), savers) for _ in range(2)]
            names = [name for saver in savers for name in saver.result()]
            self.assertTrue(all(lister.result() for lister in listers))
        self.assertEqual(len(set(names)), PROCESSES * SAVES)
        self.assertEqual(sorted(os.listdir(self.folder)), sorted(names))
        found = [variant.encode() for _, variant in model.listing(self.folder, EXTENSION)]
        expected = [one_of_many(process, count).encode() for process in range(PROCESSES) for count in range(SAVES)]
        self.assertEqual(sorted(found), sorted(expected))

    def save_many(self, driver, process):
        answers = [driver.save('create', (self.folder, EXTENSION, b''), one_of_many(process, count))
                   for count in range(SAVES)]
        self.assertEqual({told for [[told, _]] in answers}, {'1'})
        return [decode(name) for [[_, name]] in answers]

    def list_until_done(self, driver, savers):
        """How often it listed. All that it saw was whole."""
        listings = 0
        while not all(saver.done() for saver in savers):
            for entry in driver.ask('list', self.folder, EXTENSION):
                title, name = decode(entry[0]), decode(entry[4])
                whole = one_of_many(*map(int, name.split()))
                self.assertEqual(entry, entry_words(title, whole))
                self.assertEqual(read(self.path(title + b'.' + EXTENSION)), whole.encode())
            listings += 1
        return listings

    # What other tests leave

    def test_files_that_the_tests_write(self):
        """The archives at the end of each test, and what the command says of them."""
        kept = os.fsencode(self.room) + b'/kept'
        os.mkdir(kept)
        environment = dict(self.environment, TESSARA_KEPT_ARCHIVES=kept)
        subprocess.run([self.test_path], env=environment, check=True, capture_output=True)
        count = 0
        for test in sorted(os.listdir(kept)):
            with self.subTest(test=test):
                archive = os.path.join(kept, test)
                for title, variant in self.check_command(archive):
                    header = model.Header.read(read(os.path.join(archive, title + b'.' + EXTENSION)))
                    self.assertEqual(self.command.show(archive, title),
                                     {'Base': model.shown(variant.base), 'Tag': model.shown(variant.tag),
                                      'Number': str(variant.number + 1), 'Name': model.shown(variant.name),
                                      'Comment': f'{header.comment_length} bytes'})
                    count += 1
        self.assertGreater(count, 20)


def read(path):
    with open(path, 'rb') as file:
        return file.read()


def without_unfinished(contents):
    return {name: content for name, content in contents.items() if not model.is_unfinished(name)}


def entry_words(title, variant):
    """What the driver says of an entry of a listing."""
    return [encode(title), encode(variant.base), encode(variant.tag), str(variant.number), encode(variant.name),
            encode(model.shown_comment(variant))]


def opening_words(variant):
    """What it says of a file that it has opened."""
    return [str(model.HEADER.size + len(variant.comment)), str(variant.number), encode(variant.data)]


def verdicts(whole, offset, byte):
    """What it says of a file with a changed byte."""
    changed = whole[:offset] + bytes([byte]) + whole[offset + 1:]
    yield ['change', str(offset), str(byte)]
    try:
        yield entry_words(b'bas00001', model.listed(changed))
    except model.Refused:
        pass
    yield ['opened']
    try:
        yield opening_words(model.opened(changed))
    except model.Refused:
        pass


def answer_to(reader, record, stored):
    """What it says of a record that it has loaded: what it stores then."""
    try:
        return [[encode(stored(reader(record)[0]))]]
    except model.Refused:
        return []


def one_of_many(process, count):
    """One of the variants that processes save: those of an own Base and those of a shared one in turn."""
    name = b'%d %d' % (process, count)
    base, number = (b'shared', process * SAVES + count) if count % 2 else (b'own %d' % process, count)
    return model.Variant(base, b'ab', number, name, name * (count % 50 + 1), name * (count % 1000 + 1))


if __name__ == '__main__':
    as_plain_user()
    Library.driver_path, Library.test_path, Library.command_path = sys.argv[1:4]
    del sys.argv[1:4]
    unittest.main()
