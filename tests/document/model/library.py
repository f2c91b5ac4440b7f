"""The library at the other end of a pipe: the program of Driver.cpp, and the command."""

import json
import os
import subprocess


class Driver:
    def __init__(self, path, environment):
        self.process = subprocess.Popen([path], stdin=subprocess.PIPE, stdout=subprocess.PIPE, env=environment)

    def ask(self, command, *words):
        """The lines of its answer, each a list of words."""
        line = ' '.join([command, *map(encode, words)])
        self.process.stdin.write(line.encode() + b'\n')
        self.process.stdin.flush()
        answer = []
        for line in iter(self.process.stdout.readline, b'.\n'):
            if not line:
                raise RuntimeError(f'the library ended in {command} {words}')
            answer.append(line.decode().split())
        return answer

    def save(self, command, place, variant):
        """Saves a new variant where a wizard has led to: a folder, an extension and a title."""
        return self.ask(command, *place, variant.base, variant.tag, variant.number, variant.name, variant.comment,
                        variant.data)

    def close(self):
        self.process.stdin.close()
        self.process.stdout.close()
        return self.process.wait()


class Command:
    """`tessara archive`"""

    def __init__(self, path, extension, environment):
        self.path = path
        self.extension = extension
        self.environment = environment

    def run(self, action, archive, *rest):
        command = [self.path, 'archive', action, archive, *rest, '--extension', self.extension]
        return subprocess.run(command, env=self.environment, check=True, capture_output=True).stdout.decode()

    def list(self, archive):
        return json.loads(self.run('list', archive, '--json'))

    def show(self, archive, title):
        width = len('Comment: ')
        return {line[:width].rstrip(' :'): line[width:] for line in self.run('show', archive, title).splitlines()}


def encode(word):
    return str(word) if isinstance(word, int) else word.hex() or '-'


def decode(word):
    return bytes.fromhex(word.strip('-'))


def as_plain_user():
    """Files that cannot be read are so for this process from now on, also where root runs it."""
    if os.geteuid() == 0:
        os.setgroups([])
        os.setgid(65534)
        os.setuid(65534)
