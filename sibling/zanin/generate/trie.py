"""Builds the entries of the order table: nodes of a graph, each told once.

A node is what one entry holds but its language variants: class, order, expansion, and the
characters that lead on to other nodes. Nodes with the same content are one.

Worked example: the node of `a` has the child U+0302, which leads to the node of `a` with
circumflex, that is the top node of U+00E2 too; its child U+0301 leads to the node of U+1EA5.
"""

import functools

from model import LEFT_OUT, MAIN, OutOfForm, SEVERAL
import ucd


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


def paths(model):
    """Texts of two characters and more that have an entry, by their first character."""
    data, found = model.data, {}

    def add(text):
        for one in _spellings(text):
            if len(one) > 1 and max(one) <= 0xFFFF:
                found.setdefault(one[0], set()).add(one)

    for text in model.keys:
        if text in LEFT_OUT:
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


def _elements(model, text):
    """Elements of a text by the elements of its canonical form, if that has its own."""
    if text in model.keys:
        return model.keys[text]
    return model.elements(ucd.decompose(model.data, text)) if len(text) > 1 \
        else model.elements(text)


def _node(model, nodes, text, prefixes):
    elements = _elements(model, text)
    number, orders = model.numbers(text, elements)
    children = {}
    for code in prefixes.get(text, ()):
        try:
            children[code] = _node(model, nodes, text + (code,), prefixes)
        except OutOfForm:
            continue
    for code in _generic_marks(model, number, orders, elements):
        if code not in children:
            children[code] = _marked(model, nodes, number, elements, code)
    return nodes.add(number, orders, sorted(children.items()))


def _generic_marks(model, number, orders, elements):
    """The marks that the letter takes without a composed form."""
    if number is None or len(orders) > 1:
        return ()
    parts = model.split(elements)
    if model.tier.get(parts[0][0]) != MAIN:
        return ()
    return model.generic[number]


def _marked(model, nodes, number, elements, mark):
    """The node of a letter with one more mark."""
    with_mark = elements + model.keys[mark,]
    _, orders = model.numbers(None, with_mark)
    if orders[0] >> 7 & 31 == SEVERAL:
        return nodes.add(number, orders, [(code, -1) for code in model.generic[number]])
    several = (orders[0] | SEVERAL << 7,)
    last = nodes.add(number, several, [(code, -1) for code in model.generic[number]])
    return nodes.add(number, orders, [(code, last) for code in model.generic[number]])
