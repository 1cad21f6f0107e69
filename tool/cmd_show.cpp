#include "commands.h"
#include "failure.h"
#include "fields.h"
#include "json.h"
#include "output.h"
#include "reader.h"
#include "text_options.h"
#include "value.h"

#include <CLI/CLI.hpp>

#include <array>
#include <memory>

/// `zantm show TYPE TEXT`: one value in all its forms.

namespace zantm {

namespace {

struct Arguments {
  std::string type, text, format;
  bool json = false;
  LabelOptions labels;
};

struct Form {
  char const * name;
  char const * key;
  unsigned char format;
};

constexpr std::array kForms = {Form{"memory", "memory", ZnFormatMemory},
                               Form{"little-endian", "littleEndian", ZnFormatLittleEndian},
                               Form{"big-endian", "bigEndian", ZnFormatBigEndian}};

/// What the command tells, found once and then written one way or the other.
struct Picture {
  char id;
  std::string text, prints;
  bool isNull;
  std::array<Bytes, kForms.size()> bytes;
  unsigned int hash;
  int nextError;
  std::string next;
};

Picture Look(Arguments const & arguments) {
  Picture picture{};
  picture.id = TypeByName(arguments.type);
  picture.text = arguments.text;
  Reader reader(picture.id, arguments.format);
  Value value(picture.id);
  reader.MustRead(arguments.text, value);
  picture.prints = value.Print(arguments.format.empty() ? nullptr : arguments.format.c_str());
  picture.isNull = value.IsNull();
  for (size_t i = 0; i < kForms.size(); ++i)
    picture.bytes[i] =
        kForms[i].format == ZnFormatMemory ? value.Memory() : value.Stored(kForms[i].format);
  int error = 0;
  picture.hash = Manager().Hash(picture.id, 0, value.Data(), 1, ZnFormatMemory, error);
  picture.nextError = Manager().GetValue(picture.id, value.Data(), 0, ZnFormatMemory, 'N');
  if (picture.nextError == 0)
    picture.next = value.Print(arguments.format.empty() ? nullptr : arguments.format.c_str());
  return picture;
}

std::string Hash(Picture const & picture) {
  std::array<unsigned char, 4> bytes{};
  for (int i = 0; i < 4; ++i)
    bytes[i] = static_cast<unsigned char>(picture.hash >> (24 - 8 * i));
  std::string text = HexOf(bytes.data(), bytes.size());
  std::erase(text, ' ');
  return "0x" + text;
}

std::string Next(Picture const & picture) {
  switch (picture.nextError) {
  case 0:
    return picture.next;
  case ZnErrNoNextValue:
    return "none: this is the last one";
  default:
    return "none: the type has no steps";
  }
}

void WriteText(Picture const & picture) {
  std::string type = TypeName(picture.id);
  Write("type    " + type + ", id " + std::to_string(picture.id) + "\ntext    " + picture.text +
        "\nprints  " + picture.prints + "\nnull    " + (picture.isNull ? "yes" : "no") +
        "\nhash    " + Hash(picture) + "\nnext    " + Next(picture) + "\n");
  for (size_t i = 0; i < kForms.size(); ++i) {
    Bytes const & bytes = picture.bytes[i];
    Write(std::string(kForms[i].name) + ", " + std::to_string(bytes.size()) +
          (bytes.size() == 1 ? " byte\n" : " bytes\n") +
          Annotated(type, kForms[i].format, bytes, "    "));
  }
}

void WriteJson(Picture const & picture) {
  std::string type = TypeName(picture.id);
  Json json;
  json.Object();
  json.Key("type");
  json.String(type);
  json.Key("id");
  json.Number(static_cast<long long>(picture.id));
  json.Key("text");
  json.String(picture.text);
  json.Key("prints");
  json.String(picture.prints);
  json.Key("null");
  json.Bool(picture.isNull);
  json.Key("hash");
  json.Number(static_cast<long long>(picture.hash));
  json.Key("next");
  if (picture.nextError == 0)
    json.String(picture.next);
  else
    json.Null();
  for (size_t i = 0; i < kForms.size(); ++i) {
    json.Key(kForms[i].key);
    json.Object();
    json.Key("size");
    json.Number(static_cast<long long>(picture.bytes[i].size()));
    json.Key("fields");
    json.Array();
    for (Field const & field : FieldsOf(type, kForms[i].format, picture.bytes[i])) {
      json.Object();
      json.Key("name");
      json.String(field.name);
      json.Key("offset");
      json.Number(static_cast<long long>(field.offset));
      json.Key("bytes");
      if (field.hidden)
        json.Null();
      else
        json.String(HexOf(picture.bytes[i], field));
      json.End();
    }
    json.End();
    json.End();
  }
  json.End();
  Write(json.Text() + "\n");
}

} // namespace

void AddShow(CLI::App & app) {
  auto arguments = std::make_shared<Arguments>();
  auto command = app.add_subcommand("show", "Show a value: text, bytes, hash and next value");
  command->add_option("TYPE", arguments->type, "A type name; 'zantm types' lists them")->required();
  command->add_option("TEXT", arguments->text, "The value as text")->required();
  command->add_option("--format", arguments->format,
                      "Scan and print by this format, not by the type's own");
  command->add_flag("--json", arguments->json, "Write JSON");
  AddLabelOptions(*command, arguments->labels);
  command->footer("Bytes of addresses and gaps show as '..'.\n\n"
                  "Examples:\n  zantm show int 42\n  zantm show ZnObjId '(0-34#5)'\n"
                  "  zantm show ZnNull_short {NULL}\n  zantm show --json o_double 0.1\n"
                  "  zantm show int -- -5");
  command->callback([arguments] {
    arguments->labels.Apply();
    Picture picture = Look(*arguments);
    arguments->json ? WriteJson(picture) : WriteText(picture);
  });
}

} // namespace zantm
