#include "print.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <variant>
#include <vector>

#include "big_integer.h"
#include "utf8.h"

namespace velmor {
namespace {

// ---- Leaves ----

void append_escaped(std::string& out, std::string_view text, char quote, Escapes escapes) {
  static constexpr std::string_view kControls = "\a\b\t\n\v\f\r";
  static constexpr std::string_view kLetters = "abtnvfr";
  const auto octal = [](int digit) { return static_cast<char>('0' + digit); };
  out += quote;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const char c = text[at];
    const auto code = static_cast<unsigned char>(c);
    const std::size_t shown =
        escapes == Escapes::kInvalidUtf8 && code > 127 ? utf8_shown(text.substr(at)) : 0;
    if (shown > 0) {
      out += text.substr(at, shown);
      at += shown - 1;
    } else if (c == quote || c == '\\') {
      out += {'\\', c};
    } else if (const std::size_t i = kControls.find(c); i != std::string_view::npos) {
      out += {'\\', kLetters[i]};
    } else if (code < 32 || code >= 127) {
      out += {'\\', octal(code / 64), octal(code / 8 % 8), octal(code % 8)};
    } else {
      out += c;
    }
  }
  out += quote;
}

bool is_plain_name(std::string_view text) {
  const auto is_letter = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
  };
  const auto is_member = [=](char c) { return is_letter(c) || (c >= '0' && c <= '9'); };
  return !text.empty() && is_letter(text[0]) && std::ranges::all_of(text, is_member);
}

void append_float(std::string& out, double value) {
  if (!std::isfinite(value)) {
    out += std::isnan(value) ? "undefined" : value < 0 ? "-infinity" : "infinity";
    return;
  }
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
  const std::string_view digits(buffer, static_cast<std::size_t>(end - buffer));
  out += digits;
  if (digits.find_first_of(".e") == std::string_view::npos) out += ".0";
}

// ---- Expressions ----

// What is still to be printed lies on a stack, the next on top: texts as they are, and objects.
using Pending = std::variant<const char*, HostObject>;

class Printer {
 public:
  explicit Printer(Escapes escapes) : escapes_(escapes) {}

  std::string run(HostObject object) {
    push(object);
    while (!pending_.empty()) {
      const Pending top = pending_.back();
      pending_.pop_back();
      if (const auto* text = std::get_if<const char*>(&top))
        out_ += *text;
      else
        expand(std::get<HostObject>(top));
    }
    return std::move(out_);
  }

 private:
  void push(Pending item) { pending_.push_back(item); }

  // Pushes pieces so that the first is printed first.
  void push_all(std::initializer_list<Pending> items) {
    pending_.insert(pending_.end(), std::rbegin(items), std::rend(items));
  }

  // An operand that binds no tighter than the operator around it goes in parentheses.
  void push_binary(HostObject object, const char* op, bool within_range) {
    const auto needs_parentheses = [=](HostObject operand) {
      const int tag = tag_of(operand);
      return tag == HOST_TAG_EQUATION || tag == HOST_TAG_SEQUENCE || tag == kTagProcedure ||
             (within_range && tag == HOST_TAG_RANGE);
    };
    const auto push_operand = [&](HostObject operand) {
      if (needs_parentheses(operand))
        push_all({"(", operand, ")"});
      else
        push(operand);
    };
    push_operand(words(object)[2]);
    push(op);
    push_operand(words(object)[1]);
  }

  // Elements with commas between; those that are empty sequences print nothing.
  void push_elements(HostObject sequence) {
    const auto elements = references(sequence);
    bool any = false;
    for (auto it = elements.rbegin(); it != elements.rend(); ++it) {
      if (tag_of(*it) == HOST_TAG_SEQUENCE && sequence_size(*it) == 0) continue;
      if (any) push(", ");
      push(*it);
      any = true;
    }
  }

  void expand(HostObject object) {
    switch (tag_of(object)) {
      case HOST_TAG_NEGATIVE:
      case HOST_TAG_NON_NEGATIVE:
        out_ += to_decimal(object);
        break;
      case kTagFloat:
        append_float(out_, std::bit_cast<double>(words(object)[1]));
        break;
      case HOST_TAG_STRING:
        append_escaped(out_, text_view(object), '"', escapes_);
        break;
      case HOST_TAG_NAME:
        if (is_plain_name(text_view(object)))
          out_ += text_view(object);
        else
          append_escaped(out_, text_view(object), '`', escapes_);
        break;
      case HOST_TAG_CALL:
        push_all({words(object)[1], "(", words(object)[2], ")"});
        break;
      case HOST_TAG_EQUATION:
        push_binary(object, " = ", false);
        break;
      case HOST_TAG_RANGE:
        push_binary(object, " .. ", true);
        break;
      case HOST_TAG_LIST:
        push_all({"[", words(object)[1], "]"});
        break;
      case HOST_TAG_SET:
        push_all({"{", words(object)[1], "}"});
        break;
      case HOST_TAG_SEQUENCE:
        push_elements(object);
        break;
      case kTagProcedure:
        out_ += text_view(words(object)[1]);
        break;
      case kTagQuoted:
        push(words(object)[1]);
        break;
      default:
        out_ += "<no object>";
    }
  }

  Escapes escapes_;
  std::vector<Pending> pending_;
  std::string out_;
};

// ---- Messages ----

struct Placeholder {
  std::size_t size = 0;  // in bytes; 0 when there is none
  std::size_t index = 0;
  bool ordinal = false;
};

Placeholder placeholder_at(std::string_view message, std::size_t at) {
  if (message[at] != '%' || (at > 0 && message[at - 1] == '%')) return {};
  const std::string_view rest = message.substr(at + 1);
  const bool ordinal = rest.starts_with('-');
  const std::string_view digit = rest.substr(ordinal ? 1 : 0, 1);
  if (digit < "1" || digit > "3") return {};
  return {ordinal ? 3U : 2U, static_cast<std::size_t>(digit[0] - '0'), ordinal};
}

std::string ordinal_suffix(const std::string& decimal) {
  switch (decimal.back()) {
    case '1':
      return "st";
    case '2':
      return "nd";
    case '3':
      return "rd";
    default:
      return "th";
  }
}

}  // namespace

std::string print(HostObject object, Escapes escapes) { return Printer(escapes).run(object); }

std::size_t placeholder_count(std::string_view message) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < message.size(); ++i)
    count = std::max(count, placeholder_at(message, i).index);
  return count;
}

std::string format_message(std::string_view message, std::span<const HostObject> arguments) {
  std::string out;
  for (std::size_t i = 0; i < message.size();) {
    const Placeholder placeholder = placeholder_at(message, i);
    if (placeholder.size == 0 || placeholder.index > arguments.size()) {
      out += message[i++];
      continue;
    }
    const HostObject argument = arguments[placeholder.index - 1];
    const std::string printed = print(argument);
    out += printed;
    if (placeholder.ordinal && is_integer(argument)) out += ordinal_suffix(printed);
    i += placeholder.size;
  }
  return out;
}

}  // namespace velmor
