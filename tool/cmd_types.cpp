#include "commands.h"
#include "json.h"
#include "output.h"
#include "value.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <vector>

/// `zantm types [NAME]`: the table of types, or all about one of them.

namespace zantm {

namespace {

struct Slot {
  char const * name;
  bool present;
};

std::vector<Slot> SlotsOf(ZnTypeRow const & row) {
  return {{"Create", row.Create != nullptr},
          {"Delete", row.Delete != nullptr},
          {"Store", row.Store != nullptr},
          {"Load", row.Load != nullptr},
          {"NullSizeGet", row.NullSizeGet != nullptr},
          {"SizeGet", row.SizeGet != nullptr},
          {"SizeGetFromMemFile", row.SizeGetFromMemFile != nullptr},
          {"Compare", row.Compare != nullptr},
          {"EvalAndBound", row.EvalAndBound != nullptr},
          {"Hash", row.Hash != nullptr},
          {"ConvertTo", row.ConvertTo != nullptr},
          {"ConvertFrom", row.ConvertFrom != nullptr},
          {"Constructor", row.Constructor != nullptr},
          {"Destructor", row.Destructor != nullptr},
          {"Assignment", row.Assignment != nullptr},
          {"Copy", row.Copy != nullptr},
          {"Translate", row.Translate != nullptr},
          {"IsNull", row.IsNull != nullptr},
          {"SetNull", row.SetNull != nullptr},
          {"PrintToString", row.PrintToString != nullptr},
          {"ScanFromString", row.ScanFromString != nullptr},
          {"DefaultValue", row.DefaultValue != nullptr},
          {"GetValue", row.GetValue != nullptr}};
}

ZnTypeRow const & RowOf(char id) { return *Manager().rows[static_cast<unsigned char>(id)]; }

void WriteJson(Json & json, char id) {
  ZnTypeRow const & row = RowOf(id);
  json.Object();
  json.Key("id");
  json.Number(static_cast<long long>(id));
  json.Key("idName");
  json.String(row.idName);
  json.Key("name");
  json.String(row.name);
  json.Key("format");
  json.String(row.format);
  json.Key("memLen");
  json.Number(static_cast<long long>(row.memLen));
  json.Key("fixed");
  json.Bool(row.fixed != 0);
  json.Key("storedSize");
  if (row.fixed != 0)
    json.Number(static_cast<long long>(
        Manager().DiskLenGet(id, nullptr, ZnFormatLittleEndian, 1, ZnFormatMemory)));
  else
    json.Null();
  json.Key("null");
  json.Bool(Manager().SupportsCapability(id, 1) != 0);
  json.Key("integer");
  json.Bool(Manager().SupportsCapability(id, 2) != 0);
  json.Key("timeStamp");
  json.Bool(Manager().SupportsCapability(id, 3) != 0);
  json.Key("slots");
  json.Array();
  for (Slot const & slot : SlotsOf(row))
    if (slot.present)
      json.String(slot.name);
  json.End();
  json.End();
}

std::string StoredSize(char id) {
  if (Manager().IsFixed(id) == 0)
    return "varies";
  return std::to_string(Manager().DiskLenGet(id, nullptr, ZnFormatLittleEndian, 1, ZnFormatMemory));
}

void WriteTable() {
  Write(" id  idName            name            memory  stored  null  format\n");
  for (char id = 0; id < TypeCount(); ++id) {
    ZnTypeRow const & row = RowOf(id);
    Write(Padded(std::to_string(id), 3, true) + "  " + Padded(row.idName, 16) + "  " +
          Padded(row.name, 14) + Padded(std::to_string(row.memLen), 8, true) +
          Padded(StoredSize(id), 8, true) + "  " +
          Padded(Manager().SupportsNullValue(id) != 0 ? "yes" : "no", 4) + "  " + row.format +
          "\n");
  }
}

void WriteOne(char id) {
  ZnTypeRow const & row = RowOf(id);
  auto yesNo = [&](unsigned short capability) {
    return Manager().SupportsCapability(id, capability) != 0 ? "yes" : "no";
  };
  std::string present, absent;
  for (Slot const & slot : SlotsOf(row)) {
    std::string & list = slot.present ? present : absent;
    list.append(list.empty() ? "" : " ").append(slot.name);
  }
  Write(std::string("name         ") + row.name + "\nid           " + std::to_string(id) + ", " +
        row.idName + "\nformat       " + row.format + "\nmemory       " +
        std::to_string(row.memLen) + " bytes\nstored       " + StoredSize(id) +
        (row.fixed != 0 ? " bytes" : "") + "\nnull         " + yesNo(1) + "\ninteger      " +
        yesNo(2) + "\ntime stamp   " + yesNo(3) + "\nslots        " + present + "\n");
  if (!absent.empty())
    Write("absent       " + absent + "\n");
}

void Run(std::string const & name, bool asJson) {
  if (asJson) {
    Json json;
    if (name.empty()) {
      json.Array();
      for (char id = 0; id < TypeCount(); ++id)
        WriteJson(json, id);
      json.End();
    } else {
      WriteJson(json, TypeByName(name));
    }
    Write(json.Text() + "\n");
  } else if (name.empty()) {
    WriteTable();
  } else {
    WriteOne(TypeByName(name));
  }
}

} // namespace

void AddTypes(CLI::App & app) {
  struct Arguments {
    std::string name;
    bool json = false;
  };
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("types", "List the types, or tell all about one");
  command->add_option("NAME", arguments->name, "A type name, such as int or ZnString");
  command->add_flag("--json", arguments->json, "Write JSON");
  command->footer("Examples:\n  zantm types\n  zantm types ZnRef\n  zantm types --json");
  command->callback([arguments] { Run(arguments->name, arguments->json); });
}

} // namespace zantm
