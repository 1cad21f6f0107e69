"""Builds the entries of the order table: nodes of a graph, each told once.

A node is what one entry holds but its language variants: class, order, expansion, and the
characters that lead on to other nodes. Nodes with the same content are one.

Worked example: the node of `a` has the child U+0302, which leads to the node of `a` with
circumflex, that is the top node of U+00E2 too; its child U+0301 leads to the node of U+1EA5.
"""

import functools

from model import CLASSES, GENERIC_ARABIC, LEFT_OUT, MAIN, NEW_LETTER_MARKS, OutOfForm, \
    SEVERAL
import ucd

LATIN, ARABIC = 1, CLASSES.index('Arabic') + 1


class Nodes:
    """All nodes; a node's number is its place in `content`."""

    def __init__(self):
        self.content, self.known = [], {}

    def add(self, number, orders, children):
        """`children` are (character, node) in the order of characters; a node of -1 is the node
        itself."""
        content = (number, orders, tuple(children))
        if content not in self.known:
            self.known[content] = len(self.content)
            self.content.append(content)
        return self.known[content]


@functools.lru_cache(None)
def _spellings(text):
    return ucd.spellings(ucd.load(), text)


def paths(model, known=None, texts=()):
    """Texts of two characters and more that have an entry, by their first character: those of the
    root, or `known` ones with others."""
    data, found = model.data, {code: set(some) for code, some in (known or {}).items()}

    def add(text):
        for one in _spellings(text):
            if len(one) > 1 and max(one) <= 0xFFFF:
                found.setdefault(one[0], set()).add(one)

    for text in texts or model.keys:
        if known is None and text in LEFT_OUT:
            continue
        if len(text) > 1 or text[0] in data.decomposition:
            add(text)
    return found


def build(model, nodes, codes, all_paths):
    """The top node of each character of `codes`, without those that have no entry."""
    result = {}
    for code in codes:
        if model.in_form((code,)):
            texts = all_paths.get(code, ())
            prefixes = {}
            for text in texts:
                for end in range(1, len(text)):
                    prefixes.setdefault(text[:end], set()).add(text[end])
            result[code] = _node(model, nodes, (code,), prefixes)
    return result


def _node(model, nodes, text, prefixes):
    elements = model.entry_elements(text)
    number, orders = model.numbers(text, elements)
    children = {}
    for code in prefixes.get(text, ()):
        try:
            children[code] = _node(model, nodes, text + (code,), prefixes)
        except OutOfForm:
            continue
    marks = _generic_marks(model, text, number, orders, elements)
    for code in marks:
        if code not in children:
            children[code] = _marked(model, nodes, number, elements, code, marks)
    return nodes.add(number, orders, sorted(children.items()))


def _generic_marks(model, text, number, orders, elements):
    """The marks that the letter takes without a composed form."""
    if number is None or len(orders) > 1:
        return ()
    if number == ARABIC and text[0] not in GENERIC_ARABIC:
        return ()
    parts = model.split(elements)
    if model.tier.get(parts[0][0]) != MAIN:
        return ()
    basic = number != LATIN or model.starter.get(text[0], text[0]) < 0x80
    return model.generic[number] if basic and model.is_root_letter(parts[0][0]) else \
        sorted(NEW_LETTER_MARKS)


def _marked(model, nodes, number, elements, mark, marks):
    """The node of a letter with one more mark of those that it takes."""
    _, orders = model.numbers(None, elements + model.keys[mark,])
    several = nodes.add(number, (orders[0] | SEVERAL << 7,), [(code, -1) for code in marks])
    if orders[0] >> 7 & 31 == SEVERAL:
        return several
    return nodes.add(number, orders, [(code, several) for code in marks])
