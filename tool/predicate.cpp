#include "predicate.h"

#include "failure.h"

#include <algorithm>
#include <cctype>

namespace zantm {

namespace {

struct Operator {
  std::string_view text;
  unsigned short op;
};

// Longer operators first.
constexpr Operator kOperators[] = {{"<=", ZnOpEqual | ZnOpBelow},
                                   {">=", ZnOpEqual | ZnOpAbove},
                                   {"!=", ZnOpBelow | ZnOpAbove},
                                   {"<>", ZnOpBelow | ZnOpAbove},
                                   {"==", ZnOpEqual},
                                   {"=", ZnOpEqual},
                                   {"<", ZnOpBelow},
                                   {">", ZnOpAbove}};

void SkipBlanks(std::string_view & text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())))
    text.remove_prefix(1);
}

/// Takes `word` off the text, whatever its case, if it stands there as a word.
bool TakeWord(std::string_view & text, std::string_view word) {
  if (text.size() < word.size())
    return false;
  for (size_t i = 0; i < word.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(text[i])) != word[i])
      return false;
  if (text.size() > word.size() && !std::isspace(static_cast<unsigned char>(text[word.size()])))
    return false;
  text.remove_prefix(word.size());
  SkipBlanks(text);
  return true;
}

/// Reads what stands behind the column; false if no operator stands there.
bool ParseRest(std::string_view rest, Predicate & predicate) {
  SkipBlanks(rest);
  std::string_view words = rest;
  if (TakeWord(words, "is")) {
    bool negated = TakeWord(words, "not");
    if (!TakeWord(words, "null") || !words.empty())
      return false;
    predicate.kind = negated ? Predicate::IsNotNull : Predicate::IsNull;
    predicate.op = negated ? ZnOpBelow | ZnOpAbove : ZnOpEqual;
    return true;
  }
  auto found = std::find_if(std::begin(kOperators), std::end(kOperators),
                            [&](Operator const & o) { return rest.starts_with(o.text); });
  if (found == std::end(kOperators))
    return false;
  rest.remove_prefix(found->text.size());
  SkipBlanks(rest);
  while (!rest.empty() && std::isspace(static_cast<unsigned char>(rest.back())))
    rest.remove_suffix(1);
  if (rest.size() >= 2 && (rest.front() == '\'' || rest.front() == '"') &&
      rest.back() == rest.front())
    rest = rest.substr(1, rest.size() - 2);
  predicate.kind = Predicate::Compare;
  predicate.op = found->op;
  predicate.value = rest;
  return true;
}

} // namespace

Predicate ParsePredicate(std::string_view text, Database const & database) {
  SkipBlanks(text);
  Predicate predicate{};
  size_t longest = 0;
  // A column's name may begin with the name of another.
  for (size_t i = 0; i < database.Columns().size(); ++i) {
    std::string const & name = database.Columns()[i].name;
    Predicate attempt{};
    if (name.size() < longest || !text.starts_with(name))
      continue;
    if (!ParseRest(text.substr(name.size()), attempt))
      continue;
    predicate = attempt;
    predicate.column = i;
    longest = name.size();
  }
  if (longest != 0)
    return predicate;
  size_t end = text.find_first_of("<>=! \t");
  database.ColumnByName(text.substr(0, end)); // says so if it is the column that is wrong
  throw Failure(ExitUsage, "no condition: '" + std::string(text) +
                               "'; it is COLUMN OP VALUE, with OP one of = != < <= > >=, or "
                               "COLUMN is null, COLUMN is not null");
}

} // namespace zantm
