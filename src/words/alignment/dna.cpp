#include "words/alignment/dna.h"

#include <array>
#include <bit>

namespace vstring::words {
namespace {

constexpr Byte lower(char c) { return static_cast<Byte>(c + ('a' - 'A')); }

// S, W and N are their own complements.
constexpr char kPairs[][3] = {"AT", "CG", "RY", "KM", "BV", "DH"};

using Complements = std::array<Byte, 256>;

consteval Complements complements(Nucleic kind) {
  Complements table = {};
  for (unsigned c = 0; c < 256; ++c) table[c] = static_cast<Byte>(c);
  const auto set = [&table](char from, char to) {
    table[static_cast<Byte>(from)] = static_cast<Byte>(to);
    table[lower(from)] = lower(to);
  };
  for (const auto& pair : kPairs) {
    set(pair[0], pair[1]);
    set(pair[1], pair[0]);
  }
  set('U', 'A');
  if (kind == Nucleic::rna) set('A', 'U');
  return table;
}

constexpr Complements kDna = complements(Nucleic::dna);
constexpr Complements kRna = complements(Nucleic::rna);

// Which of the bases T, C, A, G (bits 0 to 3) a letter stands for.
struct Code {
  char letter;
  const char* bases;
};
constexpr Code kCodes[] = {
    {'T', "T"},   {'U', "T"},   {'C', "C"},   {'A', "A"},    {'G', "G"},  {'R', "AG"},
    {'Y', "TC"},  {'S', "CG"},  {'W', "TA"},  {'K', "TG"},   {'M', "CA"}, {'B', "TCG"},
    {'D', "TAG"}, {'H', "TCA"}, {'V', "CAG"}, {'N', "TCAG"},
};
constexpr char kBases[] = "TCAG";

consteval std::array<Byte, 256> base_sets() {
  std::array<Byte, 256> sets = {};
  for (const Code& code : kCodes) {
    unsigned bits = 0;
    for (const char* base = code.bases; *base != '\0'; ++base) {
      for (unsigned i = 0; i < 4; ++i) bits |= *base == kBases[i] ? 1U << i : 0U;
    }
    sets[static_cast<Byte>(code.letter)] = sets[lower(code.letter)] = static_cast<Byte>(bits);
  }
  return sets;
}

constexpr std::array<Byte, 256> kBaseSets = base_sets();

// NCBI table 1: first, second and third base in the order of kBases.
constexpr char kAminoAcids[] = "FFLLSSSSYY**CC*WLLLLPPPPHHQQRRRRIIIMTTTTNNKKSSRRVVVVAAAADDEEGGGG";

// By the sets of bases at the three places, four bits each: what all codons that they allow have in
// common, X if these differ, 0 if there are none.
using Acids = std::array<Byte, 4096>;

consteval Acids amino_acids() {
  Acids acids = {};
  for (unsigned sets = 0; sets < acids.size(); ++sets) {
    const unsigned places[] = {sets & 15, sets >> 4 & 15, sets >> 8};
    if (places[0] == 0 || places[1] == 0 || places[2] == 0) continue;
    unsigned several = 0;  // the first place with more than one base
    while (several < 3 && std::has_single_bit(places[several])) ++several;
    if (several == 3) {
      const int codon = 16 * std::countr_zero(places[2]) + 4 * std::countr_zero(places[1]) +
                        std::countr_zero(places[0]);
      acids[sets] = static_cast<Byte>(kAminoAcids[codon]);
      continue;
    }
    // One of its bases, and the others: both are smaller numbers.
    const unsigned one = (places[several] & -places[several]) << (4 * several);
    const Byte acid = acids[(sets & ~(15U << (4 * several))) | one];
    acids[sets] = acid == acids[sets ^ one] ? acid : Byte{'X'};
  }
  return acids;
}

constexpr Acids kAcids = amino_acids();

}  // namespace

void reverse_complement(Bytes sequence, Nucleic kind, MutableBytes complement) {
  const Complements& table = kind == Nucleic::dna ? kDna : kRna;
  const std::size_t n = sequence.size();
  for (std::size_t i = 0; i < n; ++i) complement[i] = table[sequence[n - 1 - i]];
}

std::size_t translate(Bytes sequence, MutableBytes protein) {
  for (std::size_t k = 0; k < protein.size(); ++k) {
    const Bytes codon = sequence.subspan(3 * k, 3);
    const unsigned first = kBaseSets[codon[0]];
    const unsigned second = kBaseSets[codon[1]];
    protein[k] = kAcids[first << 8 | second << 4 | kBaseSets[codon[2]]];
    if (protein[k] != 0) continue;
    if (!equal(codon, "---")) return 3 * k;
    protein[k] = '-';
  }
  return npos;
}

}  // namespace vstring::words
