"""Applies the tailoring of a language to the root order.

A tailoring is read as the CLDR writes it: a reset names a place of the order, relations put
strings behind it. `<` makes a new primary, which takes a slot between its neighbours; `<<` makes a
new secondary behind the anchor's, which takes a diacritic value; `<<<` keeps both and tells case
only, or takes a diacritic value too if the text is no case form of its anchor (`aa` behind the
a with ring of Danish); `=` keeps everything.

Worked example: Swedish puts the a with ring in front of the first click letter (`[before 1]`), that
is, a new primary behind z and its variants; `assign_slots` gives it a free slot there, so that the letters of
the alphabet keep theirs. Only the characters whose entries come out different get variants.

What the form cannot carry is left out and told by `Language.left_out`: upper case first, the
order of scripts, places among the symbols.
"""

import math
import os
import re
import xml.etree.ElementTree as ElementTree

import model
import ucd
from model import COMMON, LEFT_OUT, MAIN, OutOfForm, RARE

FIRST_NEW = 0x10000
WHITE = ' \t\n\r\u200e\u200f'


def rules_of(source):
    """The rule text of "file/type"."""
    name, kind = source.split('/')
    root = ElementTree.parse(os.path.join(ucd.CLDR, 'collation', name + '.xml')).getroot()
    for one in root.iter('collation'):
        if one.get('type') == kind and one.get('alt') is None:
            found = one.find('cr')
            return found.text if found is not None and found.text else ''
    raise KeyError(source)


def _import_source(tag):
    """The source that an import such as "und-u-co-eor" names."""
    short = {'phonebk': 'phonebook', 'trad': 'traditional', 'dict': 'dictionary'}
    name, _, kind = tag.partition('-u-co-')
    name = 'root' if name == 'und' else name.replace('-', '_')
    return f'{name}/{short.get(kind, kind or "standard")}'


class Parser:
    """Rules to a list of ('reset', before, text) and ('relation', strength, texts, extension);
    strengths are 1 to 3, and 0 for `=`."""

    def __init__(self, text):
        self.text, self.at, self.result, self.ignored = text, 0, [], []
        while self._space():
            self._item()

    def _space(self):
        while self.at < len(self.text):
            c = self.text[self.at]
            if c == '#':
                end = self.text.find('\n', self.at)
                self.at = len(self.text) if end < 0 else end
            elif c in WHITE:
                self.at += 1
            else:
                return True
        return False

    def _option(self):
        depth, start = 0, self.at
        while True:
            depth += {'[': 1, ']': -1}.get(self.text[self.at], 0)
            self.at += 1
            if not depth:
                return self.text[start + 1:self.at - 1].strip()

    def _item(self):
        c = self.text[self.at]
        if c == '[':
            option = self._option()
            if option.startswith('import'):
                self.result += Parser(rules_of(_import_source(option.split()[1]))).result
            else:
                self.ignored.append(option)
        elif c == '&':
            self.at += 1
            self._space()
            before = 0
            if self.text[self.at] == '[':
                option = self._option()
                if option.startswith('before'):
                    before = int(option.split()[1])
                    self._space()
                else:
                    self.result.append(('reset', 0, option))
                    return
            self.result.append(('reset', before, self._string()))
        elif c in '<=':
            strength = 0
            while self.text[self.at] == '<':
                strength, self.at = strength + 1, self.at + 1
            self.at += c == '='
            star = self.at < len(self.text) and self.text[self.at] == '*'
            self.at += star
            self._space()
            text, extension = self._string(star), ()
            self._space()
            if self.at < len(self.text) and self.text[self.at] == '/':
                self.at += 1
                self._space()
                extension = self._string()
            texts = [(one,) for one in text] if star else [text]
            self.result.append(('relation', strength, texts, extension))
        else:
            raise ValueError(f'rule syntax at {self.text[self.at:self.at + 20]!r}')

    def _string(self, star=False):
        result = []
        while self.at < len(self.text):
            c = self.text[self.at]
            if c == "'":
                end = self.text.find("'", self.at + 1)
                quoted = self.text[self.at + 1:end] or "'"
                result += [ord(x) for x in re.sub(r'\\(.)', r'\1', quoted)]
                self.at = end + 1
            elif c == '\\':
                found = re.match(r'\\(?:u([0-9A-Fa-f]{4})|U([0-9A-Fa-f]{8})|(.))',
                                 self.text[self.at:])
                result.append(int(found[1] or found[2], 16) if not found[3] else ord(found[3]))
                self.at += len(found[0])
            elif star and c == '-' and result:
                self.at += 1
                result += range(result[-1] + 1, ord(self.text[self.at]) + 1)
                self.at += 1
            elif c in WHITE + '&<=/|[#':
                break
            else:
                result.append(ord(c))
                self.at += 1
        return tuple(result)


class Language(model.Model):
    """The order of one language: the root's with overrides."""

    def __init__(self, root, source):
        self.__dict__.update(root.__dict__)
        self.root = root
        self.letters = {n: list(ps) for n, ps in root.letters.items()}
        self.class_of, self.tier = dict(root.class_of), dict(root.tier)
        self.overrides, self.left_out, self.touched = {}, [], set()
        self.new, self.seconds = FIRST_NEW, set()
        self.own = self.data.exemplar_of.get(source.split('/')[0], set())
        parser = Parser(rules_of(source))
        self.left_out += ['[' + x.split()[0] + ']' for x in parser.ignored]
        self._apply(parser.result)
        self._number_again()

    # ---- Texts to elements

    def _lookup(self, text):
        found = self.overrides.get(text)
        if found is None and text not in LEFT_OUT:
            found = self.keys.get(text)
        return found

    def elements(self, text):
        """As in the root, but always from the canonical form, and with marks in between
        (discontiguous contractions)."""
        ccc, result = self.data.ccc, []
        work = list(ucd.decompose(self.data, text))
        while work:
            for end in range(min(len(work), 6), 0, -1):
                found = self._lookup(tuple(work[:end]))
                if found is not None:
                    break
            else:
                raise OutOfForm
            key, rest, i, last = work[:end], work[end:], 0, 0
            while i < len(rest) and ccc.get(rest[i]):
                longer = self._lookup(tuple(key + [rest[i]]))
                if ccc[rest[i]] > last and longer is not None:
                    key.append(rest.pop(i))
                    found = longer
                else:
                    last = ccc[rest[i]]
                    i += 1
            result.extend(found)
            work = rest
        return tuple(result)

    def entry_elements(self, text):
        return self.elements(text)

    # ---- Rules

    def _apply(self, rules):
        anchor, before, group = None, 0, []
        for rule in rules:
            if rule[0] == 'reset':
                before, anchor = rule[1], None
                try:
                    if isinstance(rule[2], str):
                        raise OutOfForm
                    anchor = self.elements(rule[2])
                    group = [(rule[2], anchor)]
                except OutOfForm:
                    self.left_out.append('reset at ' + self._name(rule[2]))
                continue
            _, strength, texts, extension = rule
            for text in texts:
                if anchor is None:
                    continue
                # A third-level relation tells case, of one of those that it stands behind.
                own = strength
                if strength == 3:
                    same = [e for other, e in group if self._same_letters(other, text)]
                    own, anchor = (3, same[-1]) if same else (2, anchor)
                try:
                    anchor = self._relate(anchor, own, before, text, extension)
                    group = (group if strength in (0, 3) else []) + [(text, anchor)]
                except OutOfForm:
                    self.left_out.append(self._name(text))
                before = 0

    def _same_letters(self, one, other):
        """Whether two texts are case forms of one another, or of a script without case."""
        def folded(text):
            # The Turkish letters i differ by a dot, which says nothing about case.
            lower = [self.data.lower.get(c, c) for c in ucd.decompose(self.data, text)]
            return [0x69 if c == 0x131 else c for c in lower if c != 0x307 or lower[0] != 0x69]
        return folded(one) == folded(other) or \
            self.data.script.get(other[0]) not in model.CLASSES[:max(model.BICAMERAL)]

    @staticmethod
    def _name(text):
        return text if isinstance(text, str) else ''.join(map(chr, text))

    def _relate(self, anchor, strength, before, text, extension):
        if max(text) > 0xFFFF:
            raise OutOfForm
        elements = list(anchor)
        if strength in (1, 2):
            while elements and strength == 1 and not elements[-1][0]:
                elements.pop()
            if not elements:
                raise OutOfForm
            last = elements[-1]
            if strength == 1:
                elements[-1] = (self._new_primary(last[0], before, text), COMMON, 2)
            else:
                elements[-1] = (last[0], self._new_secondary(last[1], before), last[2])
        anchor = tuple(self._with_case(elements, text, strength))
        full = anchor
        if extension:
            full += tuple(self._with_case(list(self.elements(extension)), text[-1:], strength))
        self.overrides[ucd.decompose(self.data, text)] = full
        return anchor

    def _new_primary(self, primary, before, text):
        number = self.class_of.get(primary)
        if number is None:
            script = self.data.script.get(text[0])
            if script not in model.CLASSES or primary in self.digit:
                raise OutOfForm
            number = model.CLASSES.index(script) + 1
            place = 0
        else:
            place = self.letters[number].index(primary) + (0 if before == 1 else 1)
        self.new += 1
        self.letters[number].insert(place, self.new)
        self.class_of[self.new], self.tier[self.new] = number, MAIN
        self.touched.add(number)
        return self.new

    def _new_secondary(self, secondary, before):
        """A weight directly behind the anchor's, or in front of it: between whole numbers, which
        are the root's."""
        if before == 2:
            low = max([s for s in self.seconds if s < secondary] + [math.ceil(secondary) - 1])
            new = (low + secondary) / 2
        else:
            high = min([s for s in self.seconds if s > secondary] + [math.floor(secondary) + 1])
            new = (secondary + high) / 2
        self.seconds.add(new)
        return new

    def _with_case(self, elements, text, strength):
        """The elements with the case of the text's own characters."""
        data, i = self.data, 0
        for at, (primary, secondary, tertiary) in enumerate(elements):
            number = self.class_of.get(primary)
            if primary and number in model.BICAMERAL:
                code = text[min(i, len(text) - 1)]
                upper = data.category.get(code) in ('Lu', 'Lt')
                elements[at] = (primary, secondary, 8 if upper else 2)
                i += 1
            elif primary and number and strength == 3 and at == len(elements) - 1:
                elements[at] = (primary, secondary, 4)
        return elements

    # ---- Slots and values

    def _codes_of_overrides(self):
        """The characters whose elements may have changed: those that begin with a text of the
        rules, and the letters of the language itself that have a mark of theirs. The marks on
        other letters keep their order: it would take entries for them all."""
        firsts = {text[0] for text in self.overrides}
        marks = {code for code in firsts if self.data.ccc.get(code)}
        return {code for code in self.root.starter
                if self.root.starter[code] in firsts or
                (code in self.own and marks.intersection(ucd.decompose(self.data, (code,))))}

    def _number_again(self):
        root = self.root
        self.changed = self._codes_of_overrides()
        forms = {}
        for code in sorted(self.changed) + sorted(
                (t for t in self.overrides if len(t) > 1), key=lambda t: (len(t), t)):
            text = code if isinstance(code, tuple) else (code,)
            try:
                parts = self.split(self.elements(text))
            except OutOfForm:
                continue
            for primary, secondaries, _ in parts:
                if primary in self.class_of:
                    tier = self._tier_of(text)
                    form = (primary, secondaries)
                    forms[form] = min(forms.get(form, (9, 0)), (tier, text[0]))
        # A letter whose character has gone elsewhere is of use to its variants only.
        for text in self.overrides:
            old = self.keys.get(text, ())
            if len(text) == 1 and len(old) == 1 and old[0][0] in self.class_of and \
                    old[0][0] != self.overrides[text][0][0]:
                self.tier[old[0][0]] = RARE
        self.slot, self.members = dict(root.slot), dict(root.members)
        for number in self.touched:
            for place in [p for p in self.members if p[0] == number]:
                del self.members[place]
            letters = self.letters[number]
            self._take(number, letters, model.assign_slots(
                [(self.tier[p], root.slot.get(p), 3.0, False) for p in letters]))
        self._allocate_again(forms)

    def _tier_of(self, text):
        data = self.data
        return min(MAIN if c in data.exemplar_main else 1 if c in data.exemplar_auxiliary
                   else RARE for c in text)

    def _allocate_again(self, forms):
        """Values of slots whose letters or forms are not the root's."""
        root, by_place = self.root, {}
        for form in {**root.forms, **forms}:
            place = self.class_of[form[0]], self.slot[form[0]]
            by_place.setdefault(place, {})[form] = min(
                x for x in (root.forms.get(form), forms.get(form)) if x)
        self.values = dict(root.values)
        gone = None
        for place, wanted in by_place.items():
            old = root.values.get(place, {})
            same = root.members.get(place) == self.members[place]
            if same and all(form in old for form in wanted):
                continue
            first = self.members[place][0]
            kept = root.members.get(place, [None])[0] == first
            taken = {f: v for f, v in old.items()
                     if kept and f[0] == first and v != model.SEVERAL}
            values = self._allocate_slot(place, wanted, taken)
            if any(values[f] == model.SEVERAL and wanted[f][0] == MAIN for f in wanted):
                # Letters of living languages need the values of forms that no text has any more.
                gone = gone or self._gone_forms(forms)
                values = self._allocate_slot(
                    place, {f: tier for f, tier in wanted.items() if f not in gone},
                    {f: v for f, v in taken.items() if f not in gone},
                    sorted({v for f, v in taken.items() if f in gone and v > 0}))
            self.values[place] = values

    def _gone_forms(self, forms):
        """The root's forms that only characters with other elements had."""
        live = set(forms)
        for text, elements in self.root.keys.items():
            if text[0] not in self.changed:
                live.update((primary, secondaries) for primary, secondaries, _ in
                            self.root.split(elements) if primary in self.root.slot)
        return set(self.root.forms) - live

    def texts(self):
        """The texts that the rules place, and those contractions with marks on their last
        character: they have composed spellings too."""
        result = set(self.overrides)
        for text in self.overrides:
            if len(text) > 1 and not self.data.ccc.get(text[-1]):
                result.update(text[:-1] + (code,) for code in self.root.composed.get(text[-1], ()))
        return sorted(result)

    def affected(self):
        """The characters whose entries may differ from the root's."""
        moved = {p for p, slot in self.root.slot.items() if self.slot[p] != slot}
        places = {(self.class_of[p], self.slot[p]) for p in moved}
        for place, values in self.values.items():
            if self.root.values.get(place) != values:
                places.add(place)
        result = set(self.changed)
        for code, parts in self.root.primaries.items():
            for primary in parts:
                if primary in moved or \
                        (self.class_of[primary], self.slot[primary]) in places:
                    result.add(code)
        # A character leads on to the composed letters that begin with it.
        for code in list(result):
            if code in self.data.decomposition:
                result.update(text[0] for text in ucd.spellings(self.data, (code,)))
        return result
