#!/usr/bin/env python3
"""Makes the tables of the language component.

    generate.py            writes the tables
    generate.py --check    fails if the tables on disk are not what it would write, or if a
                           composed letter reads otherwise than its canonical equivalents
    generate.py --compare REVISION
                           tells in words what moved since a revision of the repository
    generate.py --count LANGUAGE FILE
                           tells how many words of a list meet what the form cannot carry

Needs Python 3 and Debian's packages unicode-data and unicode-cldr-core. The output depends on
them and on these sources alone.
"""

import argparse
import os
import sys

import emit
import languages
import model
import state
import tables
import tailor
import trie
import ucd

VERSION = 2  # of the order: to be raised whenever the fingerprint changes

HERE = os.path.dirname(os.path.abspath(__file__))
TARGET = os.path.join(HERE, '..', 'tables')


def make(report=None):
    """The tables, and all table files: name to content. `report` gets each tag and language."""
    data = ucd.load()
    root = model.Model(data)
    nodes = trie.Nodes()
    codes = sorted(set(data.name) | set(range(512)))
    known = trie.paths(root)
    tops = trie.build(root, nodes, codes, known)
    variants, tailored = {}, set()
    for number, tag, _, _, source in languages.LANGUAGES:
        if not source:
            continue
        language = tailor.Language(root, source)
        there = trie.build(language, nodes, sorted(c for c in language.affected() if c in tops),
                           trie.paths(language, known, language.texts()))
        for code, node in there.items():
            if node != tops[code]:
                variants.setdefault(code, {})[number] = node
                tailored.add(number)
        if report is not None:
            report(tag, language)
    source = f'Unicode {data.ucd_version}, UCA {data.uca_version}, CLDR {data.cldr_version}'
    result = tables.Tables(data, nodes, tops, variants)
    return result, emit.write(result, VERSION, source, tailored)


def write(files):
    for name, text in files.items():
        with open(os.path.join(TARGET, name), 'w', encoding='utf-8') as file:
            file.write(text)


def check(files):
    """Whether the tables on disk are these."""
    good = True
    there = {name for name in os.listdir(TARGET) if name.endswith('.cpp')}
    for name in sorted(there | set(files)):
        path = os.path.join(TARGET, name)
        old = open(path, encoding='utf-8').read() if name in there else None
        if old != files.get(name):
            print(f'{name}: not what the generator writes', file=sys.stderr)
            good = False
    data = ucd.load()
    for tag, code in state.differing_spellings(state.of_directory(TARGET), data):
        print(f'{tag}: U+{code:04X} reads otherwise than an equivalent text', file=sys.stderr)
        good = False
    return good


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n')[0])
    parser.add_argument('--check', action='store_true')
    parser.add_argument('--compare', metavar='REVISION')
    parser.add_argument('--count', nargs=2, metavar=('LANGUAGE', 'FILE'))
    arguments = parser.parse_args()
    if arguments.count:
        with open(arguments.count[1], 'rb') as file:
            content = file.read()
        try:
            text = content.decode('utf-8')
        except UnicodeDecodeError:
            text = content.decode('iso8859-1')
        words = sorted(set(text.split('\n')) - {''})
        print('\n'.join(state.count(state.of_directory(TARGET), arguments.count[0], words)))
        return 0
    if arguments.compare:
        old, new = state.of_revision(TARGET, arguments.compare), state.of_directory(TARGET)
        print('\n'.join(state.report(old, new, ucd.load())))
        return 0
    _, files = make()
    if arguments.check:
        return 0 if check(files) else 1
    write(files)
    return 0


if __name__ == '__main__':
    sys.exit(main())
