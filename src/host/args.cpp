#include "host/args.h"

#include <algorithm>
#include <cstdio>

namespace vstring {

void Args::refuse_count() const {
  if (signature_.too_few != nullptr) raise(signature_.too_few);
  char message[80];
  const long count = count_;
  if (signature_.required == 1) {
    std::snprintf(message, sizeof message, messages::kOneArgument, count);
  } else {
    std::snprintf(message, sizeof message, messages::kSeveralArguments, signature_.required, count);
  }
  raise(message);
}

std::int32_t Args::non_negative(int position) const {
  const std::int32_t value = integer32(position);
  if (value < 0) refuse_value_as(position, messages::kNonNegativeExpected);
  return value;
}

std::int32_t Args::positive(int position) const {
  const std::int32_t value = integer32(position);
  if (value < 1) refuse_value_as(position, messages::kPositiveExpected);
  return value;
}

Stretch Args::range(int position, std::size_t text_length, EmptyRange empty) const {
  const HostObject argument = object(position);
  if (!is_range(argument)) refuse_as(position, messages::kRangeExpected);
  std::int64_t low = 0;
  std::int64_t high = 0;
  const std::int64_t span = GetRange(host_, argument, &low, &high);
  if (span == 0 && empty == EmptyRange::anywhere) return {0, 0};
  const std::int64_t count = NormalRange(static_cast<std::int64_t>(text_length), &low, &high);
  if (count < 0) raise(messages::kInvalidRange);
  return {static_cast<std::size_t>(low), static_cast<std::size_t>(count)};
}

Elements Args::list(int position, bool sets_too) const {
  const HostObject argument = object(position);
  const bool is_collection = is_list(argument) || (sets_too && is_set(argument));
  if (!is_collection) refuse_as(position, messages::kStringsExpected);
  return Elements::of_list(argument);
}

Elements Args::strings(int position, bool sets_too) const {
  const Elements elements = list(position, sets_too);
  if (!all_texts(elements)) raise(messages::kStringsExpected[position - 1]);
  return elements;
}

std::size_t Args::choice(int position, std::span<const char* const> words) const {
  const Bytes wanted = text(position);
  const auto* const found = std::find_if(words.data(), words.data() + words.size(),
                                         [=](const char* word) { return equal(wanted, word); });
  const auto i = static_cast<std::size_t>(found - words.data());
  if (i == words.size()) refuse(position, object(position));
  return i;
}

void Args::refuse_as(int position, const char* const* ordinary) const {
  const char* const own = words(position).wrong_kind;
  raise(own != nullptr ? own : ordinary[position - 1]);
}

void Args::refuse_value_as(int position, const char* const* ordinary) const {
  const char* const own = words(position).bad_value;
  raise(own != nullptr ? own : ordinary[position - 1]);
}

void Args::raise(Status status) const {
  if (status != Status::out_of_memory) raise_assertion(host_, __LINE__, "status == out_of_memory");
  raise(messages::kOutOfMemory);
}

}  // namespace vstring
