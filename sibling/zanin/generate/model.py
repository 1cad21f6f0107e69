"""Turns collation elements into order numbers.

An order number of a letter has five bits of base letter and two of extension (together the slot,
0 to 127), five of diacritic and two of case. A script's primary weights take the slots of its
class in their order, and the secondary weights behind a primary take the diacritic values of its
slot. Where a script has more primaries than slots, rare neighbours share one and are told apart
by their diacritic value.

Worked example: `c` with acute has the elements (c), (acute). The primary of `c` has the slot 20
of class 1 (base letter 5, extension 0), acute the diacritic 2, lower case 1, so the order is
0x4000 + (1 << 12) + (2 << 7) + 20 = 0x5114.
"""

import ucd

# The script of class 1 and so on. Numbers stand in index keys: never renumbered.
CLASSES = ['Latin', 'Greek', 'Cyrillic', 'Georgian', 'Armenian', 'Hebrew', 'Arabic', 'Devanagari',
           'Bengali', 'Gurmukhi', 'Gujarati', 'Oriya', 'Tamil', 'Telugu', 'Kannada', 'Malayalam',
           'Sinhala', 'Thai', 'Lao']
BICAMERAL = {1, 2, 3, 4, 5}
UPPER_TERTIARY = {0x8, 0x9, 0xA, 0xB, 0xC, 0x1D}
COMMON = 0x20

SLOTS = 128
UPPER_END = 121    # first of the slots to which the letters behind z are drawn
SEVERAL = 31       # diacritic value of a letter with more marks than the form can tell apart
OTHER_MARK = 19    # a single mark without a value of its own
FIRST_FREE, LAST_FREE = 15, 30

# Diacritic values of single marks. 1 to 14 have fixed words, the others are ours.
LATIN_MARKS = {0x327: 1, 0x301: 2, 0x300: 3, 0x302: 4, 0x303: 5, 0x308: 6, 0x30A: 7, 0x335: 8,
               0x336: 8, 0x338: 8, 0x30C: 9, 0x304: 10, 0x306: 11, 0x307: 12, 0x328: 13,
               0x30B: 14, 0x309: 15, 0x31B: 16, 0x323: 17, 0x326: 18,
               0x30F: OTHER_MARK, 0x311: OTHER_MARK, 0x324: OTHER_MARK, 0x325: OTHER_MARK,
               0x32D: OTHER_MARK, 0x32E: OTHER_MARK, 0x330: OTHER_MARK, 0x331: OTHER_MARK}
GREEK_MARKS = {0x301: 2, 0x300: 3, 0x342: 4, 0x308: 6, 0x304: 10, 0x306: 11, 0x313: 15,
               0x314: 16, 0x345: 17}
# The marks of other scripts take 15 and up in the order of their weights; of Arabic the common
# ones only.
ARABIC_MARKS = [0x64B, 0x64C, 0x64D, 0x64E, 0x64F, 0x650, 0x651, 0x652, 0x670]

# The marks that contract with a letter of living languages that has no composed form with them:
# overlays are left out, for they never do; of Cyrillic those that are in use; of Arabic only with
# the letters of the first alphabet. Marks of Indic scripts contract where a form is composed.
NO_GENERIC = {1: {0x335, 0x336, 0x338, 0x30F, 0x311, 0x324, 0x325, 0x32D, 0x32E, 0x330},
              3: set(LATIN_MARKS) - {0x300, 0x301, 0x302, 0x303, 0x304, 0x306, 0x308, 0x30B}}
# Those on letters of Latin beside A to Z, and on the letters that a tailoring makes.
NEW_LETTER_MARKS = {0x300, 0x301, 0x302, 0x303, 0x304, 0x30C}
THAI_LAO_MARKS = {0xE48, 0xE49, 0xE4A, 0xE4B, 0xE4C, 0xEC8, 0xEC9, 0xECA, 0xECB, 0xECC}
GENERIC_CLASSES = {1, 2, 3, 6, 7, 18, 19}
GENERIC_ARABIC = range(0x621, 0x64B)

DIGIT, LETTER = 16128, 16384
IGNORED = 13       # "undefined ordering indicator": controls and other characters without weight
LONE_MARK = 80     # a mark without letter is the symbol 80 + its diacritic value
FIRST_SYMBOL = 256

FIXED_SYMBOLS = {
    '_': 112, '\xaf': 114, '\xad': 115, '-': 116, ',': 117, ';': 118, ':': 119, '!': 120,
    '\xa1': 121, '?': 122, '/': 124, '.': 126, '\xb7': 129, '\xb8': 130, "'": 132, '"': 135,
    '\xab': 138, '\xbb': 139, '(': 140, ')': 142, '[': 144, ']': 145, '{': 146, '}': 147,
    '\xa7': 148, '\xb6': 149, '\xa9': 150, '\xae': 151, '@': 153, '\xa4': 154, '\xa2': 155,
    '$': 156, '\xa3': 157, '\xa5': 158, '*': 159, '\\': 160, '&': 161, '#': 162, '%': 163,
    '+': 165, '\xb1': 167, '\xb4': 168, '`': 169, '^': 171, '\xa8': 174, '~': 176, '\xf7': 178,
    '\xd7': 179, '<': 181, '=': 183, '>': 185, '\xac': 186, '|': 187, '\xa6': 188, '\xb0': 189,
    '\xb5': 190, '\xbf': 219}
FIXED_SPACES = {'\t': 24, '\n': 25, '\v': 26, '\f': 27, '\r': 28, '\x85': 29, '\u2028': 30,
                '\u2029': 31, ' ': 32}

MAIN, AUXILIARY, RARE = 0, 1, 2

# Contractions of the root that are not carried: they would slow down every `l` for the sake of
# one language, whose tailoring has them.
LEFT_OUT = {(0x6C, 0xB7), (0x4C, 0xB7), (0x6C, 0x387), (0x4C, 0x387)}


class OutOfForm(Exception):
    """The text has a letter of a script without a class."""


def assign_slots(letters):
    """Slots for letters in their order. `letters` are (tier, wished slot or None, cost of leaving
    it, pull); a pull of 1 draws a letter to the upper end. Letters share a slot only where that
    is cheapest. Dynamic programming over letter, slot, and whether the slot has a main letter;
    ties go to the lowest slots."""
    infinite = float('inf')
    cost = {}  # (slot, has main) to cost, for the last letter
    back = []
    for i, (tier, wish, leave, pull) in enumerate(letters):
        here, trace = {}, {}
        lowest, lowest_at = (0.0, None) if not i else (infinite, None)
        behind = letters[i - 1][0] if i else None
        for slot in range(SLOTS):
            place = 1e-6 * slot if not pull else \
                1e-6 * (SLOTS - slot) + 2.0 * (slot < UPPER_END)
            if wish is not None and slot != wish:
                place += leave
            for main in (0, 1):
                if i and slot and cost.get((slot - 1, main), infinite) < lowest:
                    lowest, lowest_at = cost[slot - 1, main], (slot - 1, main)
            options = [(lowest, lowest_at, int(tier == MAIN))]
            for main in (0, 1):
                if (slot, main) in cost:
                    if tier == MAIN:
                        together = 10000.0 if main else 8.0
                    elif tier == AUXILIARY:
                        together = 50.0
                    else:
                        together = 1.0 if behind == RARE else 8.0
                    options.append((cost[slot, main] + together, (slot, main),
                                    int(main or tier == MAIN)))
            for value, source, main in options:
                if value < infinite and value + place < here.get((slot, main), infinite):
                    here[slot, main], trace[slot, main] = value + place, source
        cost = here
        back.append(trace)
    state = min(sorted(cost), key=cost.get)
    result = []
    for trace in reversed(back):
        result.append(state[0])
        state = trace[state]
    return result[::-1]


class Model:
    """The root order."""

    def __init__(self, data):
        self.data = data
        self.keys = data.keys
        self.first_letter = data.keys[0x61,][0][0]
        self.last_space = data.keys[0x5F,][0][0] - 1
        self.digit = {data.keys[0x30 + v,][0][0]: v for v in range(10)}
        self._sort_primaries()
        self._marks()
        self._symbols()
        self.slot, self.members = {}, {}
        for number in range(1, len(CLASSES) + 1):
            self._place(number)
        self.values = {}
        self._allocate()
        # For the languages: the first character of each canonical form, and the letters in it.
        self.starter = {c: ucd.decompose(data, (c,))[0] for c in data.name}
        # Composed letters of living languages by their first character.
        self.composed = {}
        for code in sorted(data.decomposition):
            if self.starter.get(code, code) != code and code in data.exemplar_main:
                self.composed.setdefault(self.starter[code], []).append(code)
        self.primaries = {text[0]: {e[0] for e in elements if e[0] in self.slot}
                          for text, elements in self.keys.items() if len(text) == 1}

    # ---- Letters

    def _sort_primaries(self):
        """The letters of each class: primaries in order, with tier and number of characters."""
        data, seen = self.data, {}
        for text, elements in self.keys.items():
            if len(text) > 1 or not elements or elements[0][0] < self.first_letter:
                continue
            script = data.script.get(text[0])
            if script not in CLASSES:
                continue
            for element in elements[:1]:
                tier = MAIN if text[0] in data.exemplar_main and len(elements) == 1 else \
                    AUXILIARY if text[0] in data.exemplar_auxiliary and len(elements) == 1 else RARE
                scripts, best, count = seen.get(element[0], ({}, RARE, 0))
                scripts[script] = scripts.get(script, 0) + 1
                seen[element[0]] = (scripts, min(tier, best), count + 1)
        self.class_of, self.tier, self.weight, self.letters = {}, {}, {}, {}
        for primary in sorted(seen):
            scripts, tier, count = seen[primary]
            number = CLASSES.index(max(sorted(scripts), key=scripts.get)) + 1
            self.class_of[primary], self.tier[primary] = number, tier
            self.weight[primary] = count
            self.letters.setdefault(number, []).append(primary)

    def _place(self, number):
        """Slots of the letters of one class in the root order."""
        letters = self.letters[number]
        main = [p for p in letters if self.tier[p] == MAIN]
        wish, leave = {}, 1.0
        if number == 1:
            for i in range(26):
                wish[self.keys[0x61 + i,][0][0]] = 4 * (3 + i)
            leave = 1e6
        elif len(main) <= 29:
            wish = {p: 4 * (3 + i) for i, p in enumerate(main)}
        elif len(main) <= 60:
            wish = {p: 4 + 2 * i for i, p in enumerate(main)}
        else:
            # Room between all letters for those that languages put there; rare neighbours are one
            # where there are too many.
            groups = []
            for p in letters:
                if len(letters) > SLOTS and groups and \
                        self.tier[p] == self.tier[groups[-1][-1]] == RARE:
                    groups[-1].append(p)
                else:
                    groups.append([p])
            wish = {p: i * SLOTS // len(groups) for i, some in enumerate(groups) for p in some}
        behind_z = self.keys[0x292,][0][0] if number == 1 else None
        self._take(number, letters, assign_slots(
            [(self.tier[p], wish.get(p), leave, number == 1 and p >= behind_z) for p in letters]))

    def _take(self, number, letters, slots):
        for slot in set(slots):
            self.members[number, slot] = []
        for primary, slot in zip(letters, slots):
            self.slot[primary] = slot
            self.members[number, slot].append(primary)

    # ---- Marks and diacritic values

    def _marks(self):
        """`mark_value`: class to secondary weight to diacritic value of a single mark;
        `generic`: class to the mark characters that contract with any of its main letters."""
        data = self.data

        def weight(code):
            elements = self.keys.get((code,), ())
            return elements[0][1] if len(elements) == 1 and not elements[0][0] else None

        self.mark_value, self.generic = {}, {}
        for number, script in enumerate(CLASSES, 1):
            if number in (1, 3):
                chosen = LATIN_MARKS
            elif number == 2:
                chosen = GREEK_MARKS
            else:
                codes = ARABIC_MARKS if script == 'Arabic' else \
                    [c for c in sorted(data.script) if data.script[c] == script and weight(c)]
                ranks = sorted({weight(c) for c in codes})
                chosen = {c: min(FIRST_FREE + ranks.index(weight(c)), LAST_FREE) for c in codes}
                if number in BICAMERAL:
                    chosen.update(LATIN_MARKS)
            self.mark_value[number] = {weight(c): v for c, v in sorted(chosen.items())}
            if script in ('Thai', 'Lao'):
                chosen = {c: v for c, v in chosen.items() if c in THAI_LAO_MARKS}
            self.generic[number] = sorted(set(chosen) - NO_GENERIC.get(number, set())) \
                if number in GENERIC_CLASSES else []
        self.lone = {}
        for number in sorted(self.mark_value, reverse=True):
            self.lone.update(self.mark_value[number])

    def _forms(self):
        """Each slot's forms: (primary, secondaries) to the best tier of a character with it."""
        data, forms = self.data, {}
        for text, elements in self.keys.items():
            tier = MAIN if text[0] in data.exemplar_main else \
                AUXILIARY if text[0] in data.exemplar_auxiliary else RARE
            for primary, secondaries, _ in self.split(elements):
                if primary in self.slot:
                    place = forms.setdefault((self.class_of[primary], self.slot[primary]), {})
                    form = (primary, secondaries)
                    place[form] = min(place.get(form, (9, 0)), (tier, text[0]))
        return forms

    def _allocate(self):
        """Diacritic values of all forms of all slots."""
        self.forms = {}
        for place, forms in self._forms().items():
            self.values[place] = self._allocate_slot(place, forms, {})
            self.forms.update(forms)

    def _allocate_slot(self, place, forms, taken, spare=()):
        """Values of one slot's forms: plain 0, single marks theirs, the rest what is free, in the
        order of the weights; the least used ones share `SEVERAL` when nothing is free. `taken`
        are values that are given already, `spare` those of marks that may serve if need be."""
        first = self.members[place][0]
        marks = self.mark_value[place[0]]
        values, used, rest = dict(taken), set(taken.values()), []
        for form in sorted(forms, key=lambda f: forms[f]):
            primary, secondaries = form
            if form in values:
                continue
            if primary == first and not secondaries:
                values[form] = 0
            elif primary == first and len(secondaries) == 1 and \
                    marks.get(secondaries[0], OTHER_MARK) != OTHER_MARK and \
                    marks[secondaries[0]] not in used:
                values[form] = marks[secondaries[0]]
                used.add(values[form])
            else:
                rest.append(form)
        free = [v for v in [*range(20, LAST_FREE + 1), *range(OTHER_MARK, FIRST_FREE - 1, -1),
                            *spare] if v not in used]
        chosen, over = rest[:len(free)], rest[len(free):]
        rank = {p: i for i, p in enumerate(self.members[place])}
        chosen.sort(key=lambda f: (rank[f[0]], f[1]))
        values.update(zip(chosen, sorted(free[:len(chosen)])))
        values.update((form, SEVERAL) for form in over)
        return values

    def _value(self, primary, secondaries):
        place = self.class_of[primary], self.slot[primary]
        values = self.values.get(place, {})
        found = values.get((primary, secondaries))
        if found is not None:
            return found
        if primary == self.members[place][0] and len(secondaries) < 2:
            single = self.mark_value[place[0]].get(secondaries[0], OTHER_MARK) \
                if secondaries else 0
            if single not in values.values():
                return single
        return SEVERAL

    # ---- Symbols

    def _symbols(self):
        """Numbers of symbols and spaces: the fixed ones, then the root's order."""
        primaries = {e[0] for elements in self.keys.values() for e in elements
                     if 0 < e[0] < self.first_letter and e[0] not in self.digit}
        self.symbol, self.fixed = {}, {}
        for fixed in (FIXED_SYMBOLS, FIXED_SPACES):
            for char, number in fixed.items():
                self.fixed[ord(char),] = number
                elements = self.keys[ord(char),]
                if len(elements) == 1 and elements[0][0] in primaries:
                    self.symbol[elements[0][0]] = number
        next_space, next_symbol = 33, FIRST_SYMBOL
        for primary in sorted(primaries - set(self.symbol)):
            if primary <= self.last_space:
                self.symbol[primary], next_space = next_space, next_space + 1
            else:
                self.symbol[primary], next_symbol = next_symbol, next_symbol + 1
        assert next_space <= 80 and next_symbol <= DIGIT

    # ---- Elements to order numbers

    @staticmethod
    def split(elements):
        """Elements to (primary, secondaries behind it, tertiary); a primary of 0 leads marks that
        stand alone."""
        result = []
        for primary, secondary, tertiary in elements:
            if primary or not result:
                result.append((primary, () if secondary == COMMON else (secondary,), tertiary))
            else:
                last = result[-1]
                result[-1] = (last[0], last[1] + (secondary,), last[2])
        return result

    def number(self, primary, secondaries, tertiary):
        """The class (or None) and order number of one element."""
        if not primary:
            return None, LONE_MARK + self.lone.get(secondaries[0], OTHER_MARK)
        if primary in self.digit:
            return None, DIGIT + 10 * self.digit[primary]
        if primary in self.symbol:
            return None, self.symbol[primary]
        if primary not in self.slot:
            raise OutOfForm
        number = self.class_of[primary]
        if number in BICAMERAL:
            case = 0 if tertiary in UPPER_TERTIARY else 1
        else:
            case = 1 if tertiary == 2 else 0
        return number, LETTER | case << 12 | self._value(primary, secondaries) << 7 | \
            self.slot[primary]

    def numbers(self, text, elements):
        """Class and order numbers of a text with these elements."""
        if text in self.fixed:
            return None, (self.fixed[text],)
        if text == (0,):
            return None, (0,)
        if not elements:
            return None, (IGNORED,)
        pairs = [self.number(*part) for part in self.split(elements)]
        classes = [number for number, _ in pairs if number]
        orders = tuple(order for _, order in pairs)
        if len(orders) > 1 and DIGIT <= orders[0] < LETTER:
            orders = (orders[0] | 1,) + orders[1:]
        return classes[0] if classes else None, orders

    # ---- Texts to elements

    def elements(self, text):
        """Elements of a text: the longest known beginnings, one behind the other."""
        result, i = [], 0
        while i < len(text):
            for end in range(len(text), i, -1):
                if text[i:end] in self.keys and text[i:end] not in LEFT_OUT:
                    result.extend(self.keys[text[i:end]])
                    i = end
                    break
            else:
                raise OutOfForm
        return tuple(result)

    def entry_elements(self, text):
        """Elements of the text of an entry: those of its canonical form, unless it has its own."""
        if text in self.keys:
            return self.keys[text]
        return self.elements(ucd.decompose(self.data, text) if len(text) > 1 else text)

    @staticmethod
    def is_root_letter(primary):
        return primary <= 0xFFFF

    def in_form(self, text):
        """Whether the text can have order numbers."""
        try:
            self.numbers(text, self.entry_elements(text))
            return True
        except OutOfForm:
            return False
