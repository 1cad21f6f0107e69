"""The code sets: ids, names, and the mapping of the one-byte sets, which Python's codecs give.

Ids stand in stored data: a line is never renumbered, new sets go to the end.
"""

# id, codec, IANA name, aliases, description
ONE_BYTE = [
    (1, 'latin_1', 'ISO-8859-1', 'Latin1 L1 IBM819 CP819', 'Western European'),
    (2, 'iso8859_2', 'ISO-8859-2', 'Latin2 L2', 'Central European'),
    (3, 'iso8859_3', 'ISO-8859-3', 'Latin3 L3', 'South European: Maltese, Esperanto'),
    (4, 'iso8859_4', 'ISO-8859-4', 'Latin4 L4', 'North European: Baltic languages, Sami'),
    (5, 'iso8859_5', 'ISO-8859-5', 'Cyrillic', 'Cyrillic'),
    (6, 'iso8859_6', 'ISO-8859-6', 'Arabic ECMA-114 ASMO-708', 'Arabic'),
    (7, 'iso8859_7', 'ISO-8859-7', 'Greek Greek8 ELOT_928 ECMA-118', 'Greek'),
    (8, 'iso8859_8', 'ISO-8859-8', 'Hebrew', 'Hebrew'),
    (9, 'iso8859_9', 'ISO-8859-9', 'Latin5 L5', 'Turkish'),
    (10, 'iso8859_10', 'ISO-8859-10', 'Latin6 L6', 'Nordic'),
    (11, 'iso8859_11', 'ISO-8859-11', 'TIS-620 Thai', 'Thai'),
    (12, 'iso8859_13', 'ISO-8859-13', 'Latin7 L7', 'Baltic Rim'),
    (13, 'iso8859_14', 'ISO-8859-14', 'Latin8 L8', 'Celtic'),
    (14, 'iso8859_15', 'ISO-8859-15', 'Latin9 L9', 'Western European with euro sign'),
    (15, 'iso8859_16', 'ISO-8859-16', 'Latin10 L10', 'South-Eastern European'),
    (16, 'cp1250', 'windows-1250', 'CP1250', 'Central European'),
    (17, 'cp1251', 'windows-1251', 'CP1251', 'Cyrillic'),
    (18, 'cp1252', 'windows-1252', 'CP1252 ANSI', 'Western European'),
    (19, 'cp1253', 'windows-1253', 'CP1253', 'Greek'),
    (20, 'cp1254', 'windows-1254', 'CP1254', 'Turkish'),
    (21, 'cp1255', 'windows-1255', 'CP1255', 'Hebrew'),
    (22, 'cp1256', 'windows-1256', 'CP1256', 'Arabic'),
    (23, 'cp1257', 'windows-1257', 'CP1257', 'Baltic'),
    (24, 'cp1258', 'windows-1258', 'CP1258', 'Vietnamese, with combining tone marks'),
    (25, 'koi8_r', 'KOI8-R', '', 'Russian'),
    (26, 'koi8_u', 'KOI8-U', '', 'Ukrainian'),
    (27, 'cp437', 'IBM437', 'CP437 437', 'United States, DOS'),
    (28, 'cp850', 'IBM850', 'CP850 850', 'Western European, DOS'),
    (29, 'cp852', 'IBM852', 'CP852 852', 'Central European, DOS'),
    (30, 'cp855', 'IBM855', 'CP855 855', 'Cyrillic, DOS'),
    (31, 'cp857', 'IBM857', 'CP857 857', 'Turkish, DOS'),
    (32, 'cp858', 'IBM00858', 'CP858 858', 'Western European with euro sign, DOS'),
    (33, 'cp860', 'IBM860', 'CP860 860', 'Portuguese, DOS'),
    (34, 'cp861', 'IBM861', 'CP861 861', 'Icelandic, DOS'),
    (35, 'cp862', 'IBM862', 'CP862 862', 'Hebrew, DOS'),
    (36, 'cp863', 'IBM863', 'CP863 863', 'French Canadian, DOS'),
    (37, 'cp864', 'IBM864', 'CP864 864', 'Arabic, DOS'),
    (38, 'cp865', 'IBM865', 'CP865 865', 'Nordic, DOS'),
    (39, 'cp866', 'IBM866', 'CP866 866', 'Russian, DOS'),
    (40, 'cp869', 'IBM869', 'CP869 869', 'Greek, DOS'),
    (41, 'cp737', 'IBM737', 'CP737 737', 'Greek, DOS'),
    (42, 'cp775', 'IBM775', 'CP775 775', 'Baltic, DOS'),
    (43, 'cp874', 'windows-874', 'CP874', 'Thai'),
    (44, 'mac_roman', 'macintosh', 'MacRoman mac', 'Western European, Macintosh'),
    (45, 'mac_latin2', 'x-mac-ce', 'MacCentralEurope MacLatin2', 'Central European, Macintosh'),
    (46, 'mac_cyrillic', 'x-mac-cyrillic', 'MacCyrillic', 'Cyrillic, Macintosh'),
    (47, 'mac_greek', 'x-mac-greek', 'MacGreek', 'Greek, Macintosh'),
    (48, 'mac_turkish', 'x-mac-turkish', 'MacTurkish', 'Turkish, Macintosh'),
    (49, 'mac_iceland', 'x-mac-icelandic', 'MacIcelandic', 'Icelandic, Macintosh'),
    (50, 'mac_croatian', 'x-mac-croatian', 'MacCroatian', 'Croatian, Macintosh'),
    (51, 'mac_romanian', 'x-mac-romanian', 'MacRomanian', 'Romanian, Macintosh'),
    (52, 'kz1048', 'KZ-1048', 'STRK1048-2002', 'Kazakh'),
    (53, 'ptcp154', 'PTCP154', 'CP154 Cyrillic-Asian', 'Cyrillic of Asian languages'),
    (54, 'koi8_t', 'KOI8-T', '', 'Tajik'),
    (55, 'hp_roman8', 'hp-roman8', 'Roman8 R8', 'Western European, HP'),
]

UNDEFINED = 0xFFFD


def to_unicode(codec):
    """The 256 characters of a one-byte set in Unicode; 0xFFFD for an undefined byte."""
    result = []
    for byte in range(256):
        try:
            text = bytes([byte]).decode(codec)
        except UnicodeDecodeError:
            text = chr(UNDEFINED)
        # A private-use character, as for the apple of the Macintosh, has no order and no name.
        result.append(ord(text) if len(text) == 1 and ord(text) < 0xE000 or
                      text and 0xF900 <= ord(text) <= 0xFFFF else UNDEFINED)
    return result
