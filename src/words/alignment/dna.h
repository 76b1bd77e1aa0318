// Nucleotide sequences, in the letters of IUPAC-IUB: A. Cornish-Bowden, "Nomenclature for
// incompletely specified bases in nucleic acid sequences: recommendations 1984", 1985.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

enum class Nucleic { dna, rna };

// Writes the reverse complement of `sequence` to `complement`, of the same size. U has the
// complement A, A that of the kind; case is kept, and bytes that are no letters of the code stay.
void reverse_complement(Bytes sequence, Nucleic kind, MutableBytes complement);

// Writes the protein of `sequence` under the standard genetic code (NCBI table 1) to `protein`, of
// a third of its length, and returns npos; or returns the offset of the first codon that is none.
// Case does not matter, U counts as T; codons that stand for several amino acids give X, three
// hyphens one; a stop is * and ends nothing.
std::size_t translate(Bytes sequence, MutableBytes protein);

}  // namespace vstring::words
