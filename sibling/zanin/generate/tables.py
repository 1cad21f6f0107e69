"""Gathers what the C++ tables hold: entries, lists, pages, code sets, case.

An entry is a node of `trie.py` with its language variants. Entries, lists and list items are
numbered in the order in which they are met, beginning with 1: place 0 is null.
"""

import codesets
import languages

NULL_PAGE = (0,) * 256
# Traits of `ZnPlainOrder`.
HAS_VARIANTS, MARKS, CONTRACTS, HAS_EXPANSION, NO_ENTRY = 1, 2, 4, 8, 16
LANGUAGE_CLASS, NO_CLASS = 255, 20


class Pool:
    """Numbers things from 1 on, the same thing once."""

    def __init__(self):
        self.items, self.known = [None], {}

    def add(self, item):
        if item not in self.known:
            self.known[item] = len(self.items)
            self.items.append(item)
        return self.known[item]


# Windows-1258 has combining marks for the sake of Vietnamese: in other tailored languages (the root
# order has them) they count as symbols there, which saves an eighth of the tables.
VIETNAMESE = {number for number, tag, *_ in languages.LANGUAGES if tag.split('-')[0] == 'vi'}


class ByteSet:
    def __init__(self, line):
        self.id, self.codec, self.name, self.aliases, self.description = line
        self.unicode = codesets.to_unicode(self.codec)
        self.byte = {}
        for byte, code in enumerate(self.unicode):
            if code != codesets.UNDEFINED:
                self.byte.setdefault(code, byte)
        self.has_marks = 0x301 in self.byte


class Tables:
    """`tops` are the top nodes of characters in the root, `variants` those in languages:
    character to {language id: node}."""

    def __init__(self, data, nodes, tops, variants):
        self.data, self.nodes = data, nodes
        self.sets = [ByteSet(line) for line in codesets.ONE_BYTE]
        self.entries, self.chars, self.places, self.ids = Pool(), Pool(), Pool(), Pool()
        self._same, self._place = {}, {}
        self.wide = {code: self._entry(tops[code], variants.get(code, {}))
                     for code in sorted(tops)}
        self.set_entries = [self._byte_entries(s, tops, variants) for s in self.sets]
        self._case()

    # ---- Entries

    def _entry(self, node, variants=None):
        """The entry of a node: (class, order, chars, entries, languages, variants, expansion)."""
        if not variants and node in self._place:
            return self._place[node]
        number, orders, children = self.nodes.content[node]
        own = 0
        if any(child == -1 for _, child in children):
            # An entry that leads to itself is named by its node before it has a place.
            own = self.entries.add(('self', node))
        chars = self.chars.add(tuple(c for c, _ in children)) if children else 0
        entries = self.places.add(tuple(own if child == -1 else self._entry(child)
                                        for _, child in children)) if children else 0
        ids = places = 0
        if variants:
            ids = self.ids.add(tuple(sorted(variants)))
            places = self.places.add(tuple(self._entry(variants[i]) for i in sorted(variants)))
        expansion = self.chars.add(orders[1:]) if len(orders) > 1 else 0
        entry = (number or 0, orders[0], chars, entries, ids, places, expansion)
        if own:
            assert not variants
            self.entries.items[own] = entry
        place = own or self.entries.add(entry)
        if not variants:
            self._place[node] = place
        return place

    def _byte_node(self, byte_set, node):
        """The node with the same meaning whose characters are bytes of the set. A node that can
        do no harm stays: its other characters are no bytes at all."""
        key = byte_set.id, node
        if key not in self._same:
            self._same[key] = node
            number, orders, children = self.nodes.content[node]
            kept, same = [], True
            for code, child in children:
                byte = byte_set.byte.get(code)
                if byte is None:
                    same = same and code >= 256
                    continue
                other = -1 if child == -1 else self._byte_node(byte_set, child)
                same = same and byte == code and other == child
                kept.append((byte, other))
            if not same:
                self._same[key] = self.nodes.add(number, orders, sorted(kept))
        return self._same[key]

    def _byte_entries(self, byte_set, tops, variants):
        result = []
        for code in byte_set.unicode:
            if code not in tops or code == codesets.UNDEFINED:
                code = 1
            result.append(self._entry(
                self._byte_node(byte_set, tops[code]),
                {i: self._byte_node(byte_set, n) if not byte_set.has_marks or i in VIETNAMESE
                 else n for i, n in variants.get(code, {}).items()}))
        return result

    # ---- Pages

    def plain(self, place, byte_set=False):
        """The shortcut of an entry: (order, class, traits)."""
        if not place:
            return 0, NO_CLASS, NO_ENTRY
        number, order, chars, _, ids, _, expansion = self.entries.items[place]
        traits = (HAS_VARIANTS if ids else 0) | (HAS_EXPANSION if expansion else 0)
        if chars:
            lowest = min(self.chars.items[chars])
            if byte_set:
                traits |= CONTRACTS if lowest < 256 else 0
            else:
                traits |= CONTRACTS if lowest < 768 else MARKS
        return order, number or LANGUAGE_CLASS, traits

    @staticmethod
    def pages(values):
        """Two-stage form of a dictionary over 16 bits: the page of each high byte, the pages.
        Page 0 is all zero."""
        pages, page_of = Pool(), []
        pages.items, pages.known = [NULL_PAGE], {NULL_PAGE: 0}
        for high in range(256):
            page_of.append(pages.add(tuple(values.get(high << 8 | low, 0) for low in range(256))))
        return page_of, pages.items

    # ---- Case

    def _case(self):
        """`case_items`: (upper, lower, list of further upper-case characters); the place of each
        character of code set 253 and of each byte set."""
        data, self.case_items, self.case = self.data, Pool(), {}
        forms = {}
        for code in sorted(data.name):
            full = data.special_upper.get(code, (data.upper.get(code, 0),))
            lower = data.lower.get(code, 0)
            if full != (0,) or lower:
                forms[code] = full[0], lower, full[1:]
                self.case[code] = self._case_item(full[0], lower, full[1:])
        self.set_cases = []
        for byte_set in self.sets:
            row = []
            for code in byte_set.unicode:
                upper, lower, more = forms.get(code, (0, 0, ()))
                if any(c not in byte_set.byte for c in (upper,) + more):
                    upper, more = 0, ()
                if lower not in byte_set.byte:
                    lower = 0
                row.append(self._case_item(upper, lower, tuple(byte_set.byte[c] for c in more))
                           if upper or lower else 0)
            self.set_cases.append(row)

    def _case_item(self, upper, lower, more):
        return self.case_items.add((upper, lower, self.chars.add(more) if more else 0))

    # ---- Fingerprint

    def fingerprint(self):
        """FNV-1a of 64 bits over the order data, little-endian 16-bit words; an entry counts by
        the hash of its content, so that its place does not matter."""
        memo = {}

        def fold(value, *words):
            for word in words:
                for shift in (0, 8):
                    value = ((value ^ (word >> shift & 255)) * 0x100000001B3) & (1 << 64) - 1
            return value

        def quad(number):
            return [number >> shift & 0xFFFF for shift in (0, 16, 32, 48)]

        def entry_hash(place):
            if place not in memo:
                number, order, chars, entries, ids, places, expansion = self.entries.items[place]
                items = self.chars.items[expansion] if expansion else ()
                value = fold(0xCBF29CE484222325, number, order, len(items), *items)
                count = len(self.chars.items[chars]) if chars else 0
                value = fold(value, count)
                for i in range(count):
                    other = self.places.items[entries][i]
                    value = fold(value, self.chars.items[chars][i],
                                 *quad(0 if other == place else entry_hash(other)))
                count = len(self.ids.items[ids]) if ids else 0
                value = fold(value, count)
                for i in range(count):
                    value = fold(value, self.ids.items[ids][i],
                                 *quad(entry_hash(self.places.items[places][i])))
                memo[place] = value
            return memo[place]

        total = 0xCBF29CE484222325
        for code, place in sorted(self.wide.items()):
            total = fold(total, code, *quad(entry_hash(place)))
        for byte_set, row in zip(self.sets, self.set_entries):
            for byte, place in enumerate(row):
                total = fold(total, byte_set.id, byte, *quad(entry_hash(place)))
        for number, _, _, script, _ in languages.LANGUAGES:
            total = fold(total, number, script)
        return total
