// What the words in signatures stand for.
#include <algorithm>

#include "lexiva/commands.h"

namespace velmor::lexiva {
namespace {

// Signatures name arguments after what they are.
constexpr Argument kKinds[] = {
    {"a .. b", "a range of positions; negative ones count from the end"},
    {"s", "a string"},
    {"t", "a string"},
    {"v", "a string"},
    {"w", "a string"},
    {"c", "a string, whose first byte counts"},
    {"p", "a string"},
    {"text", "a string"},
    {"word", "a string"},
    {"name", "a string"},
    {"pattern", "a string"},
    {"replacement", "a string"},
    {"template", "a string"},
    {"chars", "a string, whose bytes count"},
    {"separators", "a string, whose bytes count"},
    {"separator", "a string"},
    {"support", "a string, the alphabet in its order"},
    {"left", "a string"},
    {"right", "a string"},
    {"from", "a string"},
    {"to", "a string"},
    {"spec", "a string"},
    {"format", "a string"},
    {"class", "the name of a character class, or a string of its members"},
    {"n", "an integer"},
    {"k", "an integer"},
    {"i", "an integer"},
    {"j", "an integer"},
    {"width", "an integer"},
    {"seed", "an integer"},
    {"seconds", "an integer"},
    {"selector", "1, 2 or 3"},
    {"id", "an integer, the number of a dictionary"},
    {"weight", "an integer"},
    {"letter", "a string of one byte"},
    {"low", "an integer from 1 to 255, or a string of one byte"},
    {"high", "an integer from 1 to 255, or a string of one byte"},
    {"alphabet", "a string, the letters in their order"},
    {"image", "a string"},
    {"x", "a string, or a list of strings"},
    {"q", "an integer"},
    {"list", "a list of strings"},
    {"metric",
     "levenshtein, damerau, osa, indel, hamming, jaro, jarowinkler, ratio, partialratio, "
     "tokensort or tokenset"},
    {"kind", "dna or rna"},
    {"charset", "utf8 or latin1"},
    {"scheme", "null, hex, base64, base64url, base32, rot13, percent or quoted"},
    {"code", "an integer from 1 to 255"},
    {"m", "an integer"},
    {"pairs", "a string, opening and closing bytes in turn"},
    {"measure", "ease or grade"},
    {"side", "left, right or both"},
    {"fill", "a string of one byte"},
    {"tab", "an integer"},
    {"margin", "a string, or an integer for so many blanks"},
    {"f", "a procedure: the name of a command, or x -> EXPR"},
    {"z", "anything"},
    {"name0", "a quoted name"},
};

bool is_word(char c) {
  return c == '_' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

// Where `name` stands in the signature as a word of its own, behind a parenthesis; npos for
// nowhere.
std::size_t place_of(std::string_view name, std::string_view signature) {
  std::size_t at = signature.find('(');
  while ((at = signature.find(name, at)) != signature.npos) {
    const std::size_t end = at + name.size();
    if (!is_word(signature[at - 1]) && (end == signature.size() || !is_word(signature[end])))
      return at;
    at = end;
  }
  return at;
}

}  // namespace

std::vector<Argument> arguments_of(const Command& command) {
  std::vector<Argument> arguments;
  for (const Argument& argument : kKinds)
    if (place_of(argument.name, command.signature) != std::string_view::npos)
      arguments.push_back(argument);
  std::ranges::sort(arguments, {}, [&](const Argument& argument) {
    return place_of(argument.name, command.signature);
  });
  return arguments;
}

}  // namespace velmor::lexiva
