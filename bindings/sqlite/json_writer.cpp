#include <cstdlib>
#include <memory>
#include <new>

#include "heap/object.h"
#include "heap/print.h"
#include "heap/utf8.h"
#include "json.h"
#include "language/failure.h"

namespace vstring_sqlite {
namespace {

using velmor::words;

void append_hexadecimal(std::string& out, const char* begin, unsigned char byte) {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  out += begin;
  out += kDigits[byte >> 4];
  out += kDigits[byte & 15];
}

void append_string(std::string& out, std::string_view text) {
  out += '"';
  for (std::size_t at = 0; at < text.size();) {
    const auto byte = static_cast<unsigned char>(text[at]);
    const std::size_t length = byte < 0x80 ? 1 : velmor::utf8_sequence(text.substr(at));
    if (length == 0) {
      append_hexadecimal(out, "\\udc", byte);
    } else if (byte < 0x20) {
      append_hexadecimal(out, "\\u00", byte);
    } else {
      if (byte == '"' || byte == '\\') out += '\\';
      out += text.substr(at, length);
    }
    at += length == 0 ? 1 : length;
  }
  out += '"';
}

// true, false and FAIL are JSON's own; any other name is a string.
void append_name(std::string& out, std::string_view name) {
  if (name == "true" || name == "false")
    out += name;
  else if (name == "FAIL")
    out += "null";
  else
    append_string(out, name);
}

// JSON has no infinity, but a number as large is read as one everywhere.
void append_float(std::string& out, const std::string& printed) {
  if (printed == "undefined")
    out += "null";
  else if (printed.ends_with("infinity"))
    out += printed[0] == '-' ? "-9e999" : "9e999";
  else
    out += printed;
}

void append_items(std::string& out, HostObject items, std::size_t depth) {
  out += '[';
  const char* comma = "";
  for (const HostObject item : velmor::references(velmor::elements_of(items))) {
    out += comma;
    comma = ",";
    append_json(out, item, depth + 1);
  }
  out += ']';
}

// What stands to the left of an equation, as the key of an object.
std::string key(HostObject left) {
  return velmor::is_text(left) ? std::string(velmor::text_view(left)) : velmor::print(left);
}

}  // namespace

void append_json(std::string& out, HostObject value, std::size_t depth) {
  if (depth > kDeepestJson) throw velmor::Failure("the result is nested too deeply");
  switch (velmor_tag(value)) {
    case HOST_TAG_STRING:
      return append_string(out, velmor::text_view(value));
    case HOST_TAG_NAME:
      return append_name(out, velmor::text_view(value));
    case HOST_TAG_NEGATIVE:
    case HOST_TAG_NON_NEGATIVE:
      out += velmor::print(value);
      return;
    case velmor::kTagFloat:
      return append_float(out, velmor::print(value));
    case HOST_TAG_LIST:
    case HOST_TAG_SET:
    case HOST_TAG_SEQUENCE:
      return append_items(out, value, depth);
    case HOST_TAG_EQUATION:
      out += '{';
      append_string(out, key(words(value)[1]));
      out += ':';
      append_json(out, words(value)[2], depth + 1);
      out += '}';
      return;
    case HOST_TAG_RANGE:
      out += "{\"..\":[";
      append_json(out, words(value)[1], depth + 2);
      out += ',';
      append_json(out, words(value)[2], depth + 2);
      out += "]}";
      return;
    default:
      return append_string(out, velmor::print(value));
  }
}

}  // namespace vstring_sqlite
