#!/usr/bin/env python3
"""Makes territories.csv and currencies.csv from Debian's package unicode-cldr-core.

    tool/demo/generate.py            writes both beside this script
    tool/demo/generate.py --check    tells whether they are what it would write

territories.csv: a line for each territory that CLDR gives a population, with its name in six
languages, population, gross domestic product and literacy. currencies.csv: a line for each
currency that was ever used in a territory, with the days on which it came and went.
"""

import csv
import io
import pathlib
import sys
import xml.etree.ElementTree as xml

CLDR = pathlib.Path("/usr/share/unicode/cldr/common")
HERE = pathlib.Path(__file__).parent
LANGUAGES = {"english": "en", "german": "de", "french": "fr", "swedish": "sv", "greek": "el",
             "russian": "ru"}


def names(language, path, key):
    """The names of a language's file, by code; alternative forms are left out."""
    tree = xml.parse(CLDR / "main" / f"{language}.xml")
    return {item.get("type"): item.findtext(key) if key else item.text
            for item in tree.iterfind(path) if not item.get("alt")}


def territories(supplemental):
    table = {column: names(language, "localeDisplayNames/territories/territory", None)
             for column, language in LANGUAGES.items()}
    yield ["code", *LANGUAGES, "population", "gdp", "literacy"]
    for item in supplemental.iterfind("territoryInfo/territory"):
        code = item.get("type")
        if code not in table["english"]:
            continue
        yield [code, *(table[column].get(code, "") for column in LANGUAGES),
               item.get("population"), item.get("gdp"), item.get("literacyPercent")]


def currencies(supplemental):
    territory = names("en", "localeDisplayNames/territories/territory", None)
    name = names("en", "numbers/currencies/currency", "displayName")
    yield ["territory", "code", "currency", "since", "until"]
    for region in supplemental.iterfind("currencyData/region"):
        where = territory.get(region.get("iso3166"))
        for item in region.iterfind("currency"):
            code = item.get("iso4217")
            if where is None or code == "XXX" or item.get("tender") == "false":
                continue
            # A few very old currencies have only a year or a month: their day is not known.
            days = [item.get(end) or "" for end in ("from", "to")]
            yield [where, code, name.get(code, ""),
                   *(day if len(day) == len("2000-01-01") else "" for day in days)]


def main():
    supplemental = xml.parse(CLDR / "supplemental" / "supplementalData.xml")
    stale = []
    for file, rows in (("territories.csv", territories), ("currencies.csv", currencies)):
        text = io.StringIO()
        csv.writer(text, lineterminator="\n").writerows(rows(supplemental))
        path = HERE / file
        if "--check" in sys.argv[1:]:
            if path.read_text(encoding="utf-8") != text.getvalue():
                stale.append(str(path))
        else:
            path.write_text(text.getvalue(), encoding="utf-8")
    if stale:
        sys.exit("not what generate.py writes: " + ", ".join(stale))


main()
