#include "words/suffix/repetition.h"

#include <algorithm>
#include <tuple>

namespace vstring::words {
namespace {

using Length = std::uint32_t;

// A stretch of a word, read from left to right or from right to left.
template <int kStep>
struct Reading {
  const Byte* first;
  std::size_t size;
  Byte operator[](std::size_t i) const { return first[kStep * static_cast<std::ptrdiff_t>(i)]; }
};

// agreeing[i]: how far `text` from i on agrees with `pattern`; `own` holds the same of the pattern
// and itself. D. Gusfield, "Algorithms on strings, trees, and sequences", 1997, chapter 1. With
// text and pattern the same, `from` is 1: cell 0 is left alone.
template <int kStep>
void agreements(Reading<kStep> pattern, Reading<kStep> text, const Length* own, std::size_t from,
                Length* agreeing) {
  std::size_t start = from;  // text[start, end) is the known agreement that ends last
  std::size_t end = from;
  for (std::size_t i = from; i < text.size; ++i) {
    std::size_t length = 0;
    if (i < end && i > start) length = std::min<std::size_t>(own[i - start], end - i);
    if (i + length >= end) {
      while (length < pattern.size && i + length < text.size &&
             text[i + length] == pattern[length]) {
        ++length;
      }
      start = i;
      end = i + length;
    }
    agreeing[i] = static_cast<Length>(length);
  }
}

class Finder {
 public:
  Finder(Bytes word, HeldArray<Repetition>& found) : word_(word), found_(found) {}

  Status find() {
    if (word_.size() > UINT32_MAX || !right_own_.resize(word_.size()) ||
        !left_own_.resize(word_.size()) || !across_.resize(word_.size())) {
      return Status::out_of_memory;
    }
    for (std::size_t half = 1; half < word_.size(); half *= 2) {
      for (std::size_t start = 0; start + half < word_.size(); start += 2 * half) {
        if (!search(start, start + half, std::min(start + 2 * half, word_.size()))) {
          return Status::out_of_memory;
        }
      }
    }
    keep_least_periods();
    return Status::ok;
  }

 private:
  // Finds what lies in [start, end) on both sides of `middle`.
  bool search(std::size_t start, std::size_t middle, std::size_t end) {
    const std::size_t left = middle - start;
    const std::size_t right = end - middle;
    const Reading<1> onward = {word_.data() + middle, right};
    const Reading<-1> backward = {word_.data() + middle - 1, left};
    agreements<1>(onward, onward, right_own_.data(), 1, right_own_.data());
    agreements<-1>(backward, backward, left_own_.data(), 1, left_own_.data());

    // With a period p to the right of the middle: letters agree with those p places on.
    agreements<-1>(backward, {word_.data() + end - 1, right}, left_own_.data(), 0, across_.data());
    for (std::size_t p = 1; p <= right; ++p) {
      std::size_t before = across_[right - p];
      if (before == p && p < left) before += left_own_[p];  // and on, with what is left of it
      const std::size_t after = p < right ? right_own_[p] : 0;
      if (before == 0 || before + after < p) continue;
      if (!add(middle - before, middle + p + after, p)) return false;
    }
    // With a period p to the left of it only: letters agree with those p places before.
    agreements<1>(onward, {word_.data() + start, left}, right_own_.data(), 0, across_.data());
    for (std::size_t p = 1; p <= left; ++p) {
      const std::size_t before = p < left ? left_own_[p] : 0;
      const std::size_t after = across_[left - p];
      if (after == 0 || after >= p || before + after < p) continue;
      if (!add(middle - p - before, middle + after, p)) return false;
    }
    return true;
  }

  bool add(std::size_t start, std::size_t end, std::size_t p) {
    if (start > 0 && word_[start - 1] == word_[start - 1 + p]) return true;
    if (end < word_.size() && word_[end] == word_[end - p]) return true;
    return found_.push_back(
        {static_cast<Length>(start), static_cast<Length>(end), static_cast<Length>(p)});
  }

  // A repetition was also found with the multiples of its period. Of two that start at one place
  // the one with the greater period ends later.
  void keep_least_periods() {
    const auto key = [](const Repetition& r) { return std::tuple(r.start, r.end, r.period); };
    std::sort(found_.begin(), found_.end(),
              [key](const Repetition& a, const Repetition& b) { return key(a) < key(b); });
    const auto* const end =
        std::unique(found_.begin(), found_.end(), [](const Repetition& a, const Repetition& b) {
          return a.start == b.start && a.end == b.end;
        });
    while (found_.end() != end) found_.pop_back();
  }

  Bytes word_;
  HeldArray<Repetition>& found_;
  Buffer<Length> right_own_;
  Buffer<Length> left_own_;
  Buffer<Length> across_;
};

}  // namespace

Status maximal_repetitions(Bytes word, HeldArray<Repetition>& repetitions) {
  return Finder(word, repetitions).find();
}

}  // namespace vstring::words
