"""Reads what the tables are made of: Debian's unicode-data and unicode-cldr-core.

Worked example: `load().keys[(0x63, 0x301)]` is missing, `.keys[(0x107,)]` is
`((0x20A5, 0x20, 2), (0, 0x24, 2))`: a primary weight with a secondary one behind it.

Only the Basic Multilingual Plane is read: a character of code set 253 is one 16-bit unit.
"""

import functools
import glob
import html
import os
import re

UCD = '/usr/share/unicode'
CLDR = UCD + '/cldr/common'


class Data:
    """All that is read, as plain dictionaries over code points."""


def _lines(path):
    with open(path, encoding='utf-8') as file:
        for line in file:
            yield line.rstrip('\n')


def _ranges(path):
    for line in _lines(path):
        found = re.match(r'^([0-9A-F]+)(?:\.\.([0-9A-F]+))? *; *(\w+)', line)
        if found:
            first = int(found[1], 16)
            for code in range(first, min(int(found[2] or found[1], 16), 0xFFFF) + 1):
                yield code, found[3]


def _unicode_data(data):
    data.name, data.category, data.ccc = {}, {}, {}
    data.decomposition, data.upper, data.lower = {}, {}, {}
    for line in _lines(UCD + '/UnicodeData.txt'):
        field = line.split(';')
        code = int(field[0], 16)
        if code > 0xFFFF:
            break
        data.name[code], data.category[code] = field[1], field[2]
        if field[3] != '0':
            data.ccc[code] = int(field[3])
        if field[5] and field[5][0] != '<':
            data.decomposition[code] = tuple(int(x, 16) for x in field[5].split())
        if field[12] and int(field[12], 16) <= 0xFFFF:
            data.upper[code] = int(field[12], 16)
        if field[13] and int(field[13], 16) <= 0xFFFF:
            data.lower[code] = int(field[13], 16)


def _special_casing(data):
    """Upper-case forms of several characters, without conditions."""
    data.special_upper = {}
    for line in _lines(UCD + '/SpecialCasing.txt'):
        field = [x.strip() for x in line.split('#')[0].split(';')]
        if len(field) == 5 and not field[4]:
            upper = tuple(int(x, 16) for x in field[3].split())
            if len(upper) > 1:
                data.special_upper[int(field[0], 16)] = upper


def _collation_keys(data):
    """The root collation: strings to collation elements (primary, secondary, tertiary)."""
    data.keys, data.variable = {}, set()
    for line in _lines(CLDR + '/uca/allkeys_CLDR.txt'):
        found = re.match(r'^([0-9A-F ]+?) *; (\[.*\]) #', line)
        if not found:
            version = re.match(r'^@version (\S+)', line)
            if version:
                data.uca_version = version[1]
            continue
        text = tuple(int(x, 16) for x in found[1].split())
        if max(text) > 0xFFFF:
            continue
        elements = []
        for star, weights in re.findall(r'\[(.)([0-9A-F.]+)\]', found[2]):
            primary, secondary, tertiary = (int(x, 16) for x in weights.split('.'))
            if star == '*':
                data.variable.add(primary)
            if primary or secondary or tertiary:
                elements.append((primary, secondary, tertiary))
        data.keys[text] = tuple(elements)


def _parse_set(text):
    """The characters of a UnicodeSet as the exemplars use it: ranges, escapes, strings."""
    text = html.unescape(text.strip())[1:-1]
    items = re.findall(r'\\u[0-9A-Fa-f]{4}|\\.|\{[^}]*\}|.', text)

    def plain(item):
        if item.startswith('\\u'):
            return chr(int(item[2:], 16))
        return item[1:] if item.startswith('\\') else item

    result, i = set(), 0
    while i < len(items):
        item = items[i]
        if item == ' ':
            pass
        elif item.startswith('{'):
            result.update(re.sub(r'\\', '', item[1:-1]))
        elif i + 2 < len(items) and items[i + 1] == '-':
            last = plain(items[i + 2])
            result.update(chr(c) for c in range(ord(plain(item)), ord(last) + 1))
            i += 2
        else:
            result.add(plain(item))
        i += 1
    return result


def _exemplars(data):
    """Characters that living languages write with: `main` and `auxiliary` of all locales, and
    `main` of each."""
    data.exemplar_main, data.exemplar_auxiliary, data.exemplar_of = set(), set(), {}
    for path in sorted(glob.glob(CLDR + '/main/*.xml')):
        with open(path, encoding='utf-8') as file:
            text = file.read()
        for kind, chars in re.findall(
                r'<exemplarCharacters( type="auxiliary")?[^>t]*>(\[.*?\])</exemplarCharacters>',
                text):
            some = {ord(c) for c in _parse_set(chars)}
            (data.exemplar_auxiliary if kind else data.exemplar_main).update(some)
            if not kind:
                data.exemplar_of[os.path.basename(path).removesuffix('.xml')] = some
    for chars in (data.exemplar_main, data.exemplar_auxiliary, *data.exemplar_of.values()):
        chars.update([data.upper[c] for c in chars if c in data.upper])


@functools.lru_cache(None)
def load():
    data = Data()
    _unicode_data(data)
    _special_casing(data)
    _collation_keys(data)
    _exemplars(data)
    data.script = dict(_ranges(UCD + '/Scripts.txt'))
    excluded = {code for code, name in _ranges(UCD + '/DerivedNormalizationProps.txt')
                if name == 'Full_Composition_Exclusion'}
    data.composition = {parts: code for code, parts in data.decomposition.items()
                        if len(parts) == 2 and code not in excluded}
    data.ucd_version = next(re.search(r'-(\d+\.\d+\.\d+)\.txt', line)[1]
                            for line in _lines(UCD + '/Scripts.txt'))
    with open(CLDR + '/dtd/ldml.dtd', encoding='utf-8') as file:
        data.cldr_version = re.search(r'cldrVersion CDATA #FIXED "(\d+)"', file.read())[1]
    return data


# ---- Canonical equivalence

def decompose(data, text):
    """The canonical decomposition of a sequence of code points, in canonical order."""
    result = []
    for code in text:
        parts = data.decomposition.get(code)
        result.extend(decompose(data, parts) if parts else (code,))
    i = 0
    while i < len(result):
        j = i
        while j < len(result) and data.ccc.get(result[j]):
            j += 1
        result[i:j] = sorted(result[i:j], key=data.ccc.get)
        i = j + 1 if j == i else j
    return tuple(result)


def spellings(data, text):
    """All texts that are canonically equivalent to `text` and reached by composing a starter with
    marks, whatever the order of the marks."""
    decomposed = decompose(data, text)
    found, todo = {decomposed}, [decomposed]
    while todo:
        one = todo.pop()
        for i in range(len(one) - 1):
            a, b = one[i], one[i + 1]
            swapped = one[:i] + (b, a) + one[i + 2:]
            ca, cb = data.ccc.get(a, 0), data.ccc.get(b, 0)
            more = []
            if ca and cb and ca != cb:
                more.append(swapped)
            if (a, b) in data.composition:
                more.append(one[:i] + (data.composition[a, b],) + one[i + 2:])
            for other in more:
                if other not in found and decompose(data, other) == decomposed:
                    found.add(other)
                    todo.append(other)
    return found
