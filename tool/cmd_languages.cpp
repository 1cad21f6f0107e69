#include "commands.h"
#include "json.h"
#include "output.h"

#include <zanin.h>

#include <CLI/CLI.hpp>

#include <memory>

/// `zantm languages` and `zantm codesets`: what the language component knows.

namespace zantm {

namespace {

std::string Fingerprint() {
  std::string hex;
  for (auto left = ZnLanguageContext::OrderFingerprint(); hex.size() < 16; left >>= 4)
    hex.insert(hex.begin(), "0123456789abcdef"[left & 15]);
  return hex;
}

void WriteLanguages(bool asJson) {
  Json json;
  if (asJson) {
    json.Object();
    json.Key("orderVersion");
    json.Number(static_cast<long long>(ZnLanguageContext::OrderVersion()));
    json.Key("orderFingerprint");
    json.String(Fingerprint());
    json.Key("source");
    json.String(ZnLanguageContext::OrderSource());
    json.Key("languages");
    json.Array();
  } else {
    Write("order tables: version " + std::to_string(ZnLanguageContext::OrderVersion()) +
          ", fingerprint " + Fingerprint() + ", from " + ZnLanguageContext::OrderSource() +
          "\n id  tag                   order    name\n");
  }
  for (unsigned int id = 0; id < 254; ++id) {
    ZnLanguage const * language = ZnLanguageContext::QueryLanguage(static_cast<unsigned char>(id));
    if (language == nullptr || language->id != id)
      continue;
    bool tailored = language->hasTailoring != 0;
    if (asJson) {
      json.Object();
      json.Key("id");
      json.Number(static_cast<long long>(id));
      json.Key("tag");
      json.String(language->tag);
      json.Key("name");
      json.String(language->name);
      json.Key("tailored");
      json.Bool(tailored);
      json.End();
    } else {
      Write(Padded(std::to_string(id), 3, true) + "  " + Padded(language->tag, 20) + "  " +
            (tailored ? "own    " : "root   ") + "  " + language->name + "\n");
    }
  }
  if (!asJson)
    return;
  json.End();
  json.End();
  Write(json.Text() + "\n");
}

void WriteCodeSets(bool asJson) {
  Json json;
  if (asJson)
    json.Array();
  else
    Write(" id  bytes  name            description\n");
  for (unsigned int id = 1; id < 255; ++id) {
    auto number = static_cast<unsigned char>(id);
    if (!ZnLanguageContext::HasCodeSet(number))
      continue;
    ZnCodeSet const * codeSet = ZnLanguageContext::QueryCodeSet(number);
    long long bytes = id <= 224 ? 1 : 2;
    if (asJson) {
      json.Object();
      json.Key("id");
      json.Number(static_cast<long long>(id));
      json.Key("bytes");
      json.Number(bytes);
      json.Key("name");
      json.String(codeSet->name);
      json.Key("description");
      json.String(codeSet->description);
      json.End();
    } else {
      Write(Padded(std::to_string(id), 3, true) + Padded(std::to_string(bytes), 7, true) + "  " +
            Padded(codeSet->name, 14) + "  " + codeSet->description + "\n");
    }
  }
  if (!asJson)
    return;
  json.End();
  Write(json.Text() + "\n");
}

void AddList(CLI::App & app, char const * name, char const * help, void (*write)(bool)) {
  auto asJson = std::make_shared<bool>(false);
  auto command = app.add_subcommand(name, help);
  command->add_flag("--json", *asJson, "Write JSON");
  command->footer(std::string("Examples:\n  zantm ") + name + "\n  zantm " + name + " --json");
  command->callback([asJson, write] { write(*asJson); });
}

} // namespace

void AddLanguages(CLI::App & app) {
  AddList(app, "languages", "List the languages, and the state of the order tables",
          WriteLanguages);
}

void AddCodeSets(CLI::App & app) { AddList(app, "codesets", "List the code sets", WriteCodeSets); }

} // namespace zantm
