#include "output/json.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <span>
#include <string_view>
#include <vector>

#include "heap/object.h"
#include "heap/print.h"

namespace velmor {
namespace {

// What the JSON library writes to.
struct StringSink {
  using Ch = char;
  void Put(char c) { out->push_back(c); }
  void Flush() {}
  std::string* out;
};

std::string utf8_of_bytes(std::string_view bytes) {
  std::string utf8;
  for (const char c : bytes) {
    const auto code = static_cast<unsigned char>(c);
    if (code < 0x80) {
      utf8 += c;
    } else {
      utf8 += static_cast<char>(0xc0 | (code >> 6));
      utf8 += static_cast<char>(0x80 | (code & 0x3f));
    }
  }
  return utf8;
}

class JsonPrinter {
 public:
  explicit JsonPrinter(std::string& out) : sink_{&out}, writer_(sink_) {}

  void run(HostObject value) {
    write(value);
    while (!open_.empty()) {
      auto& rest = open_.back();
      if (rest.empty()) {
        writer_.EndArray();
        open_.pop_back();
      } else {
        const HostObject element = rest.front();
        rest = rest.subspan(1);
        write(element);
      }
    }
  }

 private:
  // Writes a leaf, or opens an array whose elements are still to come.
  void write(HostObject value) {
    if (const HostObject elements = elements_of(value); elements != 0) {
      if (tag_of(value) == HOST_TAG_SEQUENCE && sequence_size(value) == 0) {
        writer_.Null();
      } else {
        writer_.StartArray();
        open_.push_back(references(elements));
      }
    } else if (tag_of(value) == HOST_TAG_STRING) {
      write_string(text_view(value));
    } else if (tag_of(value) == HOST_TAG_NAME) {
      write_name(text_view(value));
    } else {
      const std::string printed = print(value);
      if (is_integer(value))
        writer_.RawValue(printed.data(), printed.size(), rapidjson::kNumberType);
      else if (tag_of(value) == kTagFloat)
        write_float(printed);
      else
        write_string(printed);
    }
  }

  void write_string(std::string_view bytes) {
    const std::string utf8 = utf8_of_bytes(bytes);
    writer_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
  }

  void write_name(std::string_view name) {
    if (name == "true" || name == "false")
      writer_.Bool(name == "true");
    else if (name == "FAIL")
      writer_.Null();
    else
      write_string(name);
  }

  void write_float(const std::string& printed) {
    if (printed.find_first_of("0123456789") == printed.npos)  // infinity, undefined
      writer_.Null();
    else
      writer_.RawValue(printed.data(), printed.size(), rapidjson::kNumberType);
  }

  StringSink sink_;
  rapidjson::Writer<StringSink> writer_;
  std::vector<std::span<HostObject>> open_;  // arrays, the innermost last: what is left of each
};

}  // namespace

void append_json(std::string& out, HostObject value) { JsonPrinter(out).run(value); }

}  // namespace velmor
