"""Writes the tables as C++ sources."""

import languages
from tables import Tables


def wrapped(items, width=99, indent='  '):
    """Items joined by commas, in lines of a width."""
    lines, line = [], indent
    for item in items:
        text = str(item) + ','
        if len(line) + len(text) > width:
            lines.append(line)
            line = indent
        line += text
    lines.append(line)
    return '\n'.join(lines)


class Writer:
    def __init__(self, source):
        self.source, self.files = source, {}

    def file(self, name, idea, body):
        self.files[name] = (
            f'// {self.source}\n// Made by sibling/zanin/generate/generate.py: do not edit.\n'
            f'//\n// {idea}\n\n#include "codeset.h"\n\nnamespace zntms {{\n\n{body}\n'
            '} // namespace zntms\n')


def _rows(rows):
    return ',\n'.join('  {' + ','.join(map(str, row)) + '}' for row in rows)


def _array(kind, name, items):
    const = '' if kind.endswith('const') else ' const'
    return f'constinit {kind}{const} {name}[] = {{\n{wrapped(items)}\n}};\n'


def _pages(kind, name, pages, item=str):
    body = ',\n'.join('{\n' + wrapped(item(x) for x in page) + '\n}' for page in pages)
    return f'constinit {kind} const {name}[][256] = {{\n{body}\n}};\n'


def _lists(kind, base, items_name, item_kind, pool, address='&{0}[{1}]', own=True):
    """The items of all lists one behind the other, and the lists over them; a list that is part
    of another one's items shares them."""
    flat, rows, at = [], [f'{{{address.format(items_name, 0)},0}}'], {}
    for one in sorted(pool.items[1:], key=lambda x: (-len(x), x)):
        if one not in at:
            at[one] = len(flat)
            flat.extend(one)
            for start in range(len(one)):
                for end in range(start + 1, len(one) + 1):
                    at.setdefault(one[start:end], len(flat) - len(one) + start)
    for one in pool.items[1:]:
        rows.append(f'{{{address.format(items_name, at[one])},{len(one)}}}')
    items = _array(item_kind, items_name, flat or [0])
    return ((f'namespace {{\n{items}}} // namespace\n\n' if own else items + '\n') +
            f'constinit ZnStoredList<{kind}> const {base}[] = {{\n{wrapped(rows)}\n}};\n')


def _plain(value):
    return '{%d,%d,%d}' % value


def _quote(text):
    return '"' + text.replace('\\', '\\\\').replace('"', '\\"') + '"'


def write(tables: Tables, version, source_name, tailored):
    out = Writer('Source: ' + source_name + '.')
    entries = tables.entries.items
    rows = [(0,) * 10]
    for number, order, chars, places, ids, variants, expansion in entries[1:]:
        rows.append((number, order, int(bool(chars)), int(bool(ids)), int(bool(expansion)),
                     chars, places, ids, variants, expansion))
    out.file('order_entries.cpp', 'All entries of the order tables; place 0 is no entry.',
             'constinit ZnCharOrderProps const ZnOrderEntryTable[] = {\n' +
             wrapped('{' + ','.join(map(str, row)) + '}' for row in rows) + '\n};\n')
    out.file('order_lists.cpp', 'The lists that entries refer to; place 0 is no list.',
             _lists('ZnWCharList', 'ZnCharListTable', 'charItems', 'unsigned short',
                    tables.chars) + '\n' +
             _lists('ZnOrderEntryList', 'ZnEntryListTable', 'ZnEntryPlaceTable', 'unsigned short',
                    tables.places, '{1}', False) + '\n' +
             _lists('ZnLanguageList', 'ZnLanguageListTable', 'languageItems', 'unsigned char',
                    tables.ids))

    page_of, pages = tables.pages(tables.wide)
    plain = [[tables.plain(place) for place in page] for page in pages]
    out.file('unicode_order.cpp',
             'Order of code set 253: entries and shortcuts in pages of 256 characters.',
             _array('unsigned char', 'WidePageOf', page_of) + '\n' +
             _pages('unsigned short', 'WideEntries', pages) + '\n' +
             'namespace {\n' + _pages('ZnPlainOrder', 'widePages', plain, _plain) +
             '} // namespace\n\n' +
             'constinit ZnPlainOrder const * const WidePagePointers[256] = {\n' +
             wrapped(f'widePages[{page}]' for page in page_of) + '\n};\n')

    page_of, pages = tables.pages(tables.case)
    out.file('case.cpp', 'Case: records, and the record of each character; 0 is none.',
             'constinit ZnUnicodeProps const CaseTable[] = {\n' +
             wrapped('{%d,%d,%d}' % (item or (0, 0, 0)) for item in tables.case_items.items) +
             '\n};\n\n' + _array('unsigned char', 'CasePageOf', page_of) + '\n' +
             _pages('unsigned short', 'CasePages', pages) + '\n' +
             _pages('unsigned short', 'ByteSetCases', tables.set_cases))

    plain = [[tables.plain(place, True) for place in row] for row in tables.set_entries]
    reverse, starts = [], [0]
    for one in tables.sets:
        reverse.extend(byte for code, byte in sorted(one.byte.items())
                       if code > 127 or code != byte)
        starts.append(len(reverse))
    count = len(tables.sets)
    out.file('byte_sets.cpp',
             'The one-byte code sets by id - 1: characters, order, and the way back.',
             _pages('unsigned short', 'ByteSetUnicode', [s.unicode for s in tables.sets]) + '\n' +
             _pages('unsigned short', 'ByteSetEntries', tables.set_entries) + '\n' +
             'namespace {\n' + _pages('ZnPlainOrder', 'byteSetPages', plain, _plain) +
             '} // namespace\n\n' +
             '// The pointers of one set begin at its number; those behind the first are other\n'
             '// sets\' or the last, and only there to be readable.\n'
             f'constinit ZnPlainOrder const * const ByteSetPagePointers[{count + 255}] = {{\n' +
             wrapped(f'byteSetPages[{min(i, count - 1)}]' for i in range(count + 255)) +
             '\n};\n\n' +
             _array('unsigned char', 'ByteSetReverse', reverse) + '\n' +
             _array('unsigned short', 'ByteSetReverseStart', starts) + '\n' +
             'namespace {\nconstinit ByteTable const byteTables[] = {\n' +
             wrapped(f'ByteTable(&ByteSetPagePointers[{i}],ByteSetEntries[{i}])'
                     for i in range(count)) + '\n};\n} // namespace\n\n' +
             'constinit ByteCodeSet const ByteCodeSets[] = {\n' +
             _rows((f'&byteTables[{i}]', s.id, _quote(s.name), _quote(s.description),
                    f'ByteSetUnicode[{i}]')
                   for i, s in enumerate(tables.sets)) + '};\n\n' +
             _array('char const * const', 'ByteSetAliases',
                    [_quote(s.aliases) for s in tables.sets]) +
             f'constinit int const ByteSetCount = {count};\n')

    rows = [(1 if number in tailored else 0, number, script, _quote(tag), _quote(name))
            for number, tag, name, script, _ in languages.LANGUAGES]
    dotted = [number for number, tag, *_ in languages.LANGUAGES if tag in languages.DOTTED_I]
    out.file('languages.cpp', 'The languages by id, and what is told of the order as a whole.',
             'constinit ZnLanguage const LanguageTable[] = {\n' + _rows(rows) + '};\n' +
             f'constinit int const LanguageCount = {len(rows)};\n\n' +
             'constinit LanguageAlias const LanguageAliasTable[] = {\n' +
             _rows((_quote(a), _quote(t)) for a, t in sorted(languages.ALIASES.items())) +
             '};\n' +
             f'constinit int const LanguageAliasCount = {len(languages.ALIASES)};\n\n' +
             _array('unsigned char', 'DottedILanguages', dotted + [0]) + '\n' +
             f'constinit unsigned int const OrderVersionNumber = {version};\n'
             f'constinit unsigned long long const OrderFingerprintNumber = '
             f'{tables.fingerprint():#018x}ULL;\n'
             f'constinit char const * const OrderSourceName = {_quote(source_name)};\n')
    return out.files
