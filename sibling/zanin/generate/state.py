"""Reads the written tables back, as the library does, and tells two states of them apart.

Worked example of the report: "sv: a with diaeresis (U+00E4): class 1, lower case, slot 114, diacritic
0 -> class 1, lower case, slot 115, diacritic 0".
"""

import collections
import re
import subprocess

import ucd

FILES = ['order_entries.cpp', 'order_lists.cpp', 'unicode_order.cpp', 'languages.cpp']


def _body(text, name):
    return re.search(r'\b' + name + r'\[\](?:\[256\])? = \{\n(.*?)\n\};', text, re.S)[1]


def _numbers(text):
    return [int(x) for x in re.findall(r'\d+', text)]


class State:
    """The order of code set 253 and the languages; `texts` are the contents of `FILES`."""

    def __init__(self, texts):
        flat = _numbers(_body(texts['order_entries.cpp'], 'ZnOrderEntryTable'))
        self.entries = [flat[i:i + 10] for i in range(0, len(flat), 10)]
        lists = texts['order_lists.cpp']

        def table(name, items):
            data = _numbers(_body(lists, items))
            pairs = re.findall(r'\{(?:&\w+\[)?(\d+)\]?,(\d+)\}', _body(lists, name))
            return [data[int(at):int(at) + int(count)] for at, count in pairs]

        self.chars = table('ZnCharListTable', 'charItems')
        self.places = table('ZnEntryListTable', 'ZnEntryPlaceTable')
        self.ids = table('ZnLanguageListTable', 'languageItems')
        wide = texts['unicode_order.cpp']
        page_of = _numbers(_body(wide, 'WidePageOf'))
        pages = _numbers(_body(wide, 'WideEntries'))
        self.tops = {}
        for code in range(0x10000):
            place = pages[page_of[code >> 8] * 256 + (code & 255)]
            if place:
                self.tops[code] = place
        self.tags = {int(number): tag for number, tag in re.findall(
            r'\{[01],(\d+),\d+,"([^"]+)"', texts['languages.cpp'])}
        self.tailored = {int(n) for n in re.findall(r'\{1,(\d+),\d+,"', texts['languages.cpp'])}

    def read(self, text, language=0):
        """What a text reads as: (class, orders) for each entry."""
        result, i = [], 0
        while i < len(text):
            place = self.tops.get(text[i])
            i += 1
            if place is None:
                result.append((20, (text[i - 1],)))
                continue
            ids = self.ids[self.entries[place][7]] if self.entries[place][7] else ()
            if language in ids:
                place = self.places[self.entries[place][8]][ids.index(language)]
            while i < len(text) and self.entries[place][5]:
                chars = self.chars[self.entries[place][5]]
                if text[i] not in chars:
                    break
                place = self.places[self.entries[place][6]][chars.index(text[i])]
                i += 1
            entry = self.entries[place]
            more = tuple(self.chars[entry[9]]) if entry[9] else ()
            result.append((entry[0], (entry[1],) + more))
        return result

    def contractions(self, code, language=0):
        """The texts of two characters that begin with `code` and have an entry."""
        place = self.tops.get(code)
        if place is None:
            return set()
        ids = self.ids[self.entries[place][7]] if self.entries[place][7] else ()
        if language in ids:
            place = self.places[self.entries[place][8]][ids.index(language)]
        return {(code, c) for c in self.chars[self.entries[place][5]]} \
            if self.entries[place][5] else set()

    def languages_of(self, code):
        place = self.tops.get(code)
        return set(self.ids[self.entries[place][7]]) if place and self.entries[place][7] else set()


def of_directory(path):
    texts = {}
    for name in FILES:
        with open(f'{path}/{name}', encoding='utf-8') as file:
            texts[name] = file.read()
    return State(texts)


def of_revision(directory, revision):
    return State({name: subprocess.run(
        ['git', '-C', directory, 'show', f'{revision}:./{name}'], check=True,
        capture_output=True, encoding='utf-8').stdout for name in FILES})


# ---- What the tables promise

def differing_spellings(state, data):
    """Composed characters that read otherwise than a canonically equivalent text: (tag, code),
    over all composed characters and all languages."""
    wrong = []
    for code in sorted(data.decomposition):
        if code not in state.tops:
            continue
        spellings = [t for t in ucd.spellings(data, (code,)) if max(t) <= 0xFFFF]
        for language in [0] + sorted(state.tailored):
            readings = {tuple(state.read(t, language)) for t in spellings}
            if len(readings) > 1:
                wrong.append((state.tags[language], code))
    return wrong


# ---- What moved

def _words(readings):
    """A reading in words."""
    parts = []
    for number, orders in readings:
        for order in orders:
            if number == 20 or order >= 0x8000:
                parts.append('no entry')
            elif order >= 0x4000:
                parts.append(f'class {number}, {"lower" if order >> 12 & 3 else "upper"} case, '
                             f'slot {order & 127}, diacritic {order >> 7 & 31}')
            elif order >= 16128:
                parts.append(f'digit {(order - 16128) // 10}')
            else:
                parts.append(f'symbol {order - 80}' if order >= 80 else f'space {order}')
    return ' + '.join(parts)


def _kind(old, new):
    """The level on which a reading changed."""
    def level(mask):
        return [[(n, o & mask if 0x4000 <= o < 0x8000 else o) for o in orders]
                for n, orders in old] != \
            [[(n, o & mask if 0x4000 <= o < 0x8000 else o) for o in orders] for n, orders in new]
    if level(0x407F):
        return 'place in the alphabet or kind'
    return 'diacritic' if level(0x4FFF) else 'case'


def report(old, new, data, show=20):
    """Lines that tell what moved between two states."""
    lines, kinds, examples = [], collections.Counter(), collections.defaultdict(list)
    for language in sorted(set(new.tags) | set(old.tags)):
        tag = new.tags.get(language) or old.tags[language]
        if old.tags.get(language) != new.tags.get(language):
            lines.append(f'language {language}: {old.tags.get(language, "none")} -> '
                         f'{new.tags.get(language, "none")}')
        for code in sorted(set(old.tops) | set(new.tops)):
            if language and language not in old.languages_of(code) | new.languages_of(code):
                continue
            texts = {(code,)} | old.contractions(code, language) ^ \
                new.contractions(code, language)
            for text in sorted(texts):
                before, after = old.read(text, language), new.read(text, language)
                if before == after:
                    continue
                kind = tag, _kind(before, after)
                kinds[kind] += 1
                name = ' '.join(f'{data.name.get(c, "").lower()} (U+{c:04X})' for c in text)
                examples[kind].append(f'  {tag}: {name}: {_words(before)} -> {_words(after)}')
    for kind in sorted(kinds):
        lines.append(f'{kind[0]}: {kinds[kind]} with another {kind[1]}')
        lines += examples[kind][:show]
    return lines or ['nothing moved']


# ---- What real text meets

def count(state, tag, words):
    """Lines that tell how many words of a language meet what the form cannot carry."""
    language = next(number for number, name in state.tags.items() if name == tag)
    counts, readings = collections.Counter(), collections.defaultdict(list)
    for word in words:
        text = [ord(c) for c in word if ord(c) <= 0xFFFF]
        reading = tuple(state.read(text, language))
        readings[reading].append(word)
        orders = [o for number, some in reading for o in some if number != 20]
        counts['a character beyond 16 bits'] += len(text) < len(word)
        counts['a character without entry'] += any(number == 20 for number, _ in reading)
        counts['marks without a value of their own (31)'] += any(
            0x4000 <= o < 0x8000 and o >> 7 & 31 == 31 for o in orders)
        counts['a mark without letter'] += any(80 < o < 112 for o in orders)
    same = [some for some in readings.values() if len(some) > 1]
    counts['the same order as another word'] += sum(len(some) for some in same)
    return [f'{tag}: {len(words)} words'] + \
        [f'  {counts[kind]} with {kind}' for kind in sorted(counts)] + \
        ['  equal: ' + ' '.join(some) for some in same[:5]]
