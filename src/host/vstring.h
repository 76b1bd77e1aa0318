/* vstring: string processing for computer-algebra hosts.
 *
 * This is the library's whole public interface, for C and C++. A host
 *   1. fills a HostTable with its own operations,
 *   2. resolves the commands it wants by name (dlsym),
 *   3. calls each as  HostObject vstring_x(const HostTable *, HostObject argseq).
 *
 * Every command reads its arguments in place, checks them in order, and either returns a new host
 * object or raises through HostError, which never returns. Texts are bytes ended by a zero byte;
 * positions are 1-based, -1 is the last byte. One thread at a time. */
#ifndef VSTRING_H
#define VSTRING_H

#include <stddef.h>
#include <stdint.h>
#include <time.h>

#if defined(__GNUC__)
#define VSTRING_API __attribute__((visibility("default")))
#else
#define VSTRING_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Host objects ---------------------------------------------------------------------------
 *
 * A word whose lowest bit is set is an immediate integer; its sign is the word's sign. Any other
 * word points to an object that begins with a header word: bits 0..31 hold the length in 64-bit
 * words (header included), bits 32..37 the tag.
 *
 * Strings and names hold their NUL-terminated text from word 3 on; the last word holds the
 * terminator and zero padding. In an expression sequence, word i holds element i (1-based); word 1
 * of a list or set points to such a sequence. Words 1 and 2 of an equation or range are its sides.
 */
typedef uintptr_t HostObject;

enum {
  HOST_TAG_NEGATIVE = 0x01,
  HOST_TAG_NON_NEGATIVE = 0x02,
  HOST_TAG_STRING = 0x07,
  HOST_TAG_NAME = 0x08,
  HOST_TAG_CALL = 0x0a,
  HOST_TAG_EQUATION = 0x15,
  HOST_TAG_LIST = 0x1f,
  HOST_TAG_RANGE = 0x24,
  HOST_TAG_SET = 0x25,
  HOST_TAG_RTABLE = 0x27
};

/* ---- The host function table ----------------------------------------------------------------
 *
 * Position N is the N-th machine word, counted from 0. The library never calls an unlisted
 * position. Operations marked (raises) may leave by longjmp or a C++ exception; so may any that
 * allocates. Truth values are 0 or not 0. */
typedef void (*HostUnlisted)(void);

typedef struct HostTable {
  HostUnlisted unlisted0[2];
  void (*HostAssign)(HostObject name, HostObject value); /*   2 */
  HostUnlisted unlisted3[2];
  void (*HostError)(const char* message, ...);      /*   5: never returns */
  HostObject (*HostSeqToList)(HostObject sequence); /*   6 */
  HostUnlisted unlisted7[2];
  HostObject (*HostEvalProc)(HostObject procedure, int64_t n, ...); /*   9 */
  HostUnlisted unlisted10[4];
  int (*HostIsInteger)(HostObject object); /*  14 */
  HostUnlisted unlisted15[2];
  int (*HostIsInteger32)(HostObject object); /*  17 */
  HostUnlisted unlisted18[2];
  int (*HostIsName)(HostObject object); /*  20 */
  HostUnlisted unlisted21[4];
  int (*HostIsRTable)(HostObject object); /*  25 */
  int (*HostIsString)(HostObject object); /*  26 */
  HostUnlisted unlisted27[3];
  HostObject (*HostNewList)(int64_t n);                                   /*  30 */
  void (*HostListAssign)(HostObject list, int64_t i, HostObject element); /*  31 */
  HostUnlisted unlisted32[1];
  void (*HostGcAllow)(HostObject object);   /*  33 */
  void (*HostGcProtect)(HostObject object); /*  34 */
  HostUnlisted unlisted35[7];
  int32_t (*HostToInteger32)(HostObject integer); /*  42 */
  HostUnlisted unlisted43[4];
  char* (*HostToCString)(HostObject string); /*  47 */
  int64_t (*HostNumArgs)(HostObject argseq); /*  48 */
  HostUnlisted unlisted49[6];
  HostObject (*HostRTableCreate)(void* settings, ...);              /*  55 */
  void* (*HostRTableData)(HostObject rtable);                       /*  56 */
  void (*HostRTableSettings)(void* settings);                       /*  57 */
  void (*HostRTableGetSettings)(void* settings, HostObject rtable); /*  58 */
  HostUnlisted unlisted59[4];
  int64_t (*HostRTableNumElements)(HostObject rtable); /*  63 */
  HostUnlisted unlisted64[21];
  HostObject (*HostToBoolean)(int64_t value); /*  85: 0 false, 1 true, -1 FAIL */
  HostUnlisted unlisted86[3];
  HostObject (*HostNewExpSeq)(int64_t n);      /*  89 */
  HostObject (*HostNewSeqOf)(int64_t n, ...);  /*  90 */
  HostObject (*HostNewInteger)(int64_t value); /*  91 */
  HostUnlisted unlisted92[1];
  HostObject (*HostNewFloat)(double value);                    /*  93 */
  HostObject (*HostNewName)(const char* text, int64_t global); /*  94 */
  HostObject (*HostNull)(void);                                /*  95 */
  HostUnlisted unlisted96[2];
  HostObject (*HostNewExpr)(const char* op, HostObject left, HostObject right); /*  98 */
  HostObject (*HostNewString)(const char* text);                                /*  99: copies */
  HostObject (*HostQuote)(HostObject object);                                   /* 100 */
  HostUnlisted unlisted101[1];
  void (*HostUserInfo)(int64_t level, const char* package, const char* text); /* 102 */
  HostUnlisted unlisted103[15];
  void (*HostPrintf)(const char* format, ...); /* 118 */
} HostTable;

/* ---- Identity -------------------------------------------------------------------------------- */

/* Prepares the process once: sets the "C" locale for all categories. 1 when the first call
 * succeeded, 0 when it failed and at every later call. */
VSTRING_API int64_t vstringInit(void);

/* Lets go of all that the library keeps from call to call. */
VSTRING_API void vstringRelease(const HostTable* host);

#define VSTRING_COMMAND(name) VSTRING_API HostObject name(const HostTable* host, HostObject argseq)

VSTRING_COMMAND(vstringVersion); /* the major version, 5 */
VSTRING_COMMAND(vstring_config); /* prints the build's configuration; no value */

/* ---- Decoding arguments ---------------------------------------------------------------------- */

/* An option that may be given as `name = value`, or bare (bit 0 of `bare`) as `name`. An array of
 * these ends with a record whose name is null. */
typedef struct VstringOption {
  const char* name;
  HostObject value;  /* out: what was given; 0 when absent */
  uint32_t position; /* out: 1-based argument position; 0 when absent */
  uint8_t bare;      /* in: bit 0, the bare name means true */
} VstringOption;

/* 1, 0 or -1 for the names true, false and FAIL; raises "cannot convert to boolean: %1". */
VSTRING_API int VelmorToBoolean(const HostTable* host, HostObject object);
VSTRING_API int IsVelmorTrueFalse(const HostTable* host, HostObject object);
VSTRING_API int IsVelmorBoolean(const HostTable* host, HostObject object);

/* Value of the first `name = value` (or bare `name`) after argument `start`; 0 when there is none.
 */
VSTRING_API HostObject GetOption(const HostTable* host, int64_t start, HostObject argseq,
                                 const char* name, int allow_bare);

/* Fills `options` from the arguments after `start`, the last one given winning, and returns how
 * many were found. Unknown names are ignored. */
VSTRING_API int64_t GetOptions(const HostTable* host, VstringOption* options, int64_t start,
                               HostObject argseq);

/* Text of a plain string or name, or of the right side of `name = text`; else null. */
VSTRING_API const char* GetStringOption(const HostTable* host, HostObject object, const char* name);

/* Endpoints of a range object as given; returns high - low + 1. Raises unless both are 32-bit. */
VSTRING_API int64_t GetRange(const HostTable* host, HostObject range, int64_t* low, int64_t* high);

/* Turns 1-based endpoints, negative ones counting from the end, into 0-based inclusive offsets and
 * returns how many bytes they span; -1, and nothing changed, when they make no range. */
VSTRING_API int64_t NormalRange(int64_t length, int64_t* low, int64_t* high);

/* Position in a text of `length` bytes: 0..length as given, a negative v as length + v. */
VSTRING_API int64_t GetStringIndex(const HostTable* host, int64_t length, HostObject object);

/* ---- Memory ---------------------------------------------------------------------------------- */

enum { SMALL_BUFFER_BASE_SIZE = 8192, TMP_CHAR_MASK = 255, TMP_CHAR_SHIFT = 0 };

/* Shared scratch buffer of SMALL_BUFFER_BASE_SIZE bytes: results of up to 8190 bytes, terminator
 * included, are built here. */
VSTRING_API extern char* smbuf;

/* Region pool: allocations of 16-byte multiples, released all at once. */
typedef struct VstringBlock {
  struct VstringBlock* previous; /* of a spare: the next spare */
  char* next_free;               /* the cursor as it was before this block was taken */
  char* end;                     /* likewise; of a spare: its own end */
  uintptr_t padding;             /* the usable area starts at 32 bytes */
} VstringBlock;

typedef struct VstringCursor {
  VstringBlock* block;
  char* next_free;
  char* end;
} VstringCursor;

typedef struct VstringPool {
  VstringCursor* cursor;
  VstringBlock* spares;
  int32_t spare_count; /* at most 10 */
} VstringPool;

VSTRING_API VstringPool* pool_create(void);
VSTRING_API VstringPool* pool_init(VstringPool* pool);
VSTRING_API void* pool_alloc(VstringPool* pool, size_t n);
VSTRING_API void* pool_alloc0(VstringPool* pool, size_t count, size_t size);
VSTRING_API char* pool_strdup(VstringPool* pool, const char* text);
VSTRING_API void pool_free(VstringPool* pool);    /* empties it; it stays usable */
VSTRING_API void pool_destroy(VstringPool* pool); /* leaves the record to its owner */

/* ---- Containers ------------------------------------------------------------------------------ */

typedef struct VstringListNode {
  struct VstringListNode* next;
  uintptr_t value;
} VstringListNode;

typedef struct VstringList {
  VstringListNode* head;
  VstringListNode* tail;
  uint32_t count;
  VstringPool* pool;
} VstringList;

VSTRING_API VstringList* list_create(void);
VSTRING_API VstringList* list_init(VstringList* list);
VSTRING_API VstringList* list_append(VstringList* list, uintptr_t value); /* null: no memory */
VSTRING_API uint32_t list_size(const VstringList* list); /* all bits set for a null list */
VSTRING_API int list_iter(const VstringList* list, int (*fn)(uintptr_t value, void* data),
                          void* data); /* 1 done, 0 stopped by fn, -1 without list or fn */
VSTRING_API void list_free(VstringList* list);

typedef struct VstringIntegerNode {
  struct VstringIntegerNode* next;
  uint32_t value;
} VstringIntegerNode;

typedef struct VstringIntegerList {
  VstringIntegerNode* head;
  VstringIntegerNode* tail;
  uint32_t count;
  VstringPool* pool;
} VstringIntegerList;

VSTRING_API VstringIntegerList* il_create(void);
VSTRING_API VstringIntegerList* il_init(VstringIntegerList* list);
VSTRING_API VstringIntegerList* il_append(VstringIntegerList* list, uint32_t value);
VSTRING_API void il_free(VstringIntegerList* list);

typedef struct VstringStringNode {
  struct VstringStringNode* next;
  char* text; /* a copy in the pool */
} VstringStringNode;

typedef struct VstringStringList {
  VstringStringNode* head;
  VstringStringNode* tail;
  VstringPool* pool;
} VstringStringList;

VSTRING_API VstringStringList* sl_create(void);
VSTRING_API VstringStringList* sl_init(VstringStringList* list);
VSTRING_API VstringStringList* sl_append(VstringStringList* list, const char* text);
VSTRING_API int sl_iter(const VstringStringList* list, int (*fn)(const char* text, void* data),
                        void* data);
VSTRING_API HostObject sl_toexpseq(const HostTable* host, const VstringStringList* list, int64_t n);
VSTRING_API void sl_free(VstringStringList* list);

typedef struct VstringTableEntry {
  struct VstringTableEntry* next;
  uintptr_t unset; /* the caller's, if it wants it */
  const char* key; /* the caller's text, not copied */
  uintptr_t value;
} VstringTableEntry;

typedef struct VstringTable {
  VstringTableEntry** buckets;
  uint32_t bucket_count; /* always even */
  uint32_t entry_count;
  VstringPool* pool;
} VstringTable;

VSTRING_API VstringTable* table_new(uint32_t n);
VSTRING_API VstringTableEntry* table_insert(VstringTable* table, const char* key, uintptr_t value);
VSTRING_API VstringTableEntry* table_search(const VstringTable* table, const char* key);
VSTRING_API int table_iter(const VstringTable* table, int (*fn)(const char* key, uintptr_t value));
VSTRING_API void table_free(VstringTable* table);

typedef struct VstringBitVector {
  uint32_t word_count; /* bits / 32; one more word is allocated */
  uint32_t bit_count;
  uint32_t* words; /* the owner frees them */
} VstringBitVector;

VSTRING_API VstringBitVector* bv_init(VstringBitVector* bits, uint32_t count);
VSTRING_API void bv_set(VstringBitVector* bits, uint32_t i);
VSTRING_API int bv_get(const VstringBitVector* bits, uint32_t i);
VSTRING_API void bv_reset(VstringBitVector* bits, uint32_t i);
VSTRING_API uint32_t bv_count(const VstringBitVector* bits); /* of the first word_count words */

/* ---- Character classes ----------------------------------------------------------------------- */

/* A character test: a code of 0..255 to a truth value. */
typedef int (*CharTest)(int code);

/* Bit n set: the character belongs to class n (lower, upper, alpha, digit, bdigit, odigit, xdigit,
 * alnum, graph, print, punct, cntrl, vowel, ident, ident1, dna, space, ascii). Writable: every
 * question about classes is answered from this table as it stands. */
VSTRING_API extern uint32_t cclbm[256];

VSTRING_API int ccl_islower(int code);
VSTRING_API int ccl_isupper(int code);
VSTRING_API int ccl_isalpha(int code);
VSTRING_API int ccl_isdigit(int code);
VSTRING_API int ccl_isbdigit(int code);
VSTRING_API int ccl_isodigit(int code);
VSTRING_API int ccl_isxdigit(int code);
VSTRING_API int ccl_isalnum(int code);
VSTRING_API int ccl_isgraph(int code);
VSTRING_API int ccl_isprint(int code);
VSTRING_API int ccl_ispunct(int code);
VSTRING_API int ccl_iscntrl(int code);
VSTRING_API int ccl_isvowel(int code);
VSTRING_API int ccl_isident(int code);
VSTRING_API int ccl_isident1(int code);
VSTRING_API int ccl_isdna(int code);
VSTRING_API int ccl_isspace(int code);
VSTRING_API int ccl_isascii(int code);

VSTRING_API CharTest CharClassNameToTest(const char* name); /* null when the name is unknown */

/* The filter alphabet, and the test that asks it. */
VSTRING_API int AlphabetFilter(int code);
VSTRING_API void SetFilterAlphabet(const char* text); /* at most 256 bytes; more are cut off */
VSTRING_API CharTest GetFilter(const HostTable* host, HostObject value);

/* ---- Searching ------------------------------------------------------------------------------- */

typedef struct VstringMatch {
  struct VstringMatch* next;
  int32_t position; /* 0-based offset */
  int32_t data;
} VstringMatch;

typedef struct VstringMatchList {
  int64_t count;
  VstringMatch* head;
  VstringMatch* tail;
} VstringMatchList;

VSTRING_API VstringMatchList* MatchListCreate(void);
VSTRING_API VstringMatchList* MatchListInit(VstringMatchList* list);
VSTRING_API VstringMatchList* AddMatchToList(VstringMatchList* list, int32_t position,
                                             int32_t data);
VSTRING_API void FreeMatchList(VstringMatchList* list); /* the nodes; the header is its creator's */
VSTRING_API HostObject MatchListToExpSeq(const HostTable* host, const VstringMatchList* list);
VSTRING_API HostObject MatchListToExpSeq2(const HostTable* host, const VstringMatchList* list);
VSTRING_API HostObject MatchListToList(const HostTable* host, const VstringMatchList* list);

/* 1-based position of the first occurrence of pattern[0, m) in text[0, n), or 0. */
VSTRING_API int64_t Search(const char* pattern, int64_t m, const char* text, int64_t n);

/* The Aho-Corasick automaton (A. V. Aho, M. J. Corasick, "Efficient string matching", 1975).
 * Everything but the record itself lives in its pool. */
typedef struct VstringOutput {
  struct VstringOutput* next;
  const char* text; /* a copy of the pattern */
  int32_t number;
  size_t length;
} VstringOutput;

typedef struct VstringEdge {
  struct VstringEdge* next;
  struct VstringAutomatonNode* target;
  unsigned char byte;
  int32_t end; /* number of the pattern that was inserted when it ends here, else 0 */
} VstringEdge;

typedef struct VstringAutomatonNode {
  struct VstringAutomatonNode* next; /* of the same depth */
  struct VstringAutomatonNode* fail; /* null: the root */
  VstringOutput* output;             /* the pattern that ends here; shorter ones follow `fail` */
  VstringEdge* edges;
} VstringAutomatonNode;

typedef struct VstringAutomaton {
  VstringAutomatonNode* root[256];
  int32_t capacity;             /* entries of `depth`; -1 once freed */
  VstringAutomatonNode** depth; /* depth[d]: the nodes at depth d, from 1 on */
  VstringPool* pool;
} VstringAutomaton;

/* ac_init destroys a pool that the record holds, so clear a record before its first use. ac_insert
 * and ac_prep return 1, or 0 when memory fails. Patterns inserted after ac_prep need another one.
 * ac_search calls fn for every match until it returns 0, and returns how many calls it made.
 * ac_free leaves the record itself to its owner. */
VSTRING_API VstringAutomaton* ac_alloc(void);
VSTRING_API VstringAutomaton* ac_init(VstringAutomaton* automaton);
VSTRING_API int ac_insert(VstringAutomaton* automaton, const char* pattern, int32_t number);
VSTRING_API int ac_prep(VstringAutomaton* automaton);
VSTRING_API int64_t ac_search(VstringAutomaton* automaton, const char* text,
                              int (*fn)(void* context, const char* pattern, const char* at,
                                        int32_t number),
                              void* context);
VSTRING_API void ac_free(VstringAutomaton* automaton);

/* A compiled regular expression: one block, released with free(). */
typedef struct VstringRegex {
  const char* start[10];    /* group 0 is the whole match; null: took no part */
  const char* end[10];      /* one past the last byte */
  unsigned char first_byte; /* every match begins with it; 0: unknown */
  unsigned char anchored;   /* matches only at the start of the text */
  uint16_t size;            /* of the program; 0: unknown, and its links are trusted */
  const char* must;         /* a literal that every match contains, or null */
  int32_t must_length;
  unsigned char program[1]; /* the magic byte 156, then the nodes */
} VstringRegex;

/* Null after recording what is wrong with the pattern. */
VSTRING_API VstringRegex* vrx_regcomp(const char* pattern);
/* 1 and the groups of the leftmost match, or 0; time is bounded by program times text. */
VSTRING_API int vrx_regexec(VstringRegex* regex, const char* text);
/* Records a message and returns the buffer; a null message only returns it. */
VSTRING_API char* vrx_regerror(const char* message);

/* ---- Sorting and time ------------------------------------------------------------------------ */

/* Writes the bytes of source[0, length) in increasing order, and a terminator. */
VSTRING_API void SortString(char* destination, const char* source, int64_t length);

/* 1 when the last formatting of a time wrote a two-digit year, else 0. */
VSTRING_API extern int32_t y2k;

/* Formats a broken-down time with English names whatever the locale. Returns the length with its
 * terminator, or 0 when it does not fit in `size` bytes or an argument is null or zero. */
VSTRING_API size_t my_strftime(char* buffer, size_t size, const char* format,
                               const struct tm* time);

/* ---- Commands --------------------------------------------------------------------------------
 *
 * Square brackets mark optional arguments. `velmor help NAME` says more and shows an example. */

/* Substrings and editing. */
VSTRING_COMMAND(vstring_length);  /* (s): number of bytes */
VSTRING_COMMAND(vstring_substr);  /* (s, a .. b): the bytes in the range */
VSTRING_COMMAND(vstring_take);    /* (s, n | chars): prefix of n bytes, or up to one of chars */
VSTRING_COMMAND(vstring_drop);    /* (s, n | chars): the rest after n bytes, or the last of chars */
VSTRING_COMMAND(vstring_insert);  /* (s, p, t): t inserted after p bytes of s */
VSTRING_COMMAND(vstring_repeat);  /* (s, n): s repeated n times */
VSTRING_COMMAND(vstring_reverse); /* (s): the bytes in reverse order */
VSTRING_COMMAND(vstring_rotate);  /* (s, n): rotated to the right by |n| */
VSTRING_COMMAND(vstring_shift);   /* (s, n): n added to every byte, modulo 256 */
VSTRING_COMMAND(vstring_exchange);  /* (s, i, j): bytes i and j swapped */
VSTRING_COMMAND(vstring_snarf);     /* (s, chars | class): longest prefix made of them */
VSTRING_COMMAND(vstring_isprefix);  /* (p, s): p begins s */
VSTRING_COMMAND(vstring_issuffix);  /* (p, s): p ends s */
VSTRING_COMMAND(vstring_has);       /* (c, s): the first byte of c occurs in s */
VSTRING_COMMAND(vstring_strchr);    /* (c, s): its first position, or 0 */
VSTRING_COMMAND(vstring_strrchr);   /* (c, s): its last position, or 0 */
VSTRING_COMMAND(vstring_ord);       /* (s): code of the first byte */
VSTRING_COMMAND(vstring_char);      /* (n): the byte with code n */
VSTRING_COMMAND(vstring_cap);       /* (s, left, right): s between left and right */
VSTRING_COMMAND(vstring_numboccur); /* (s, c): how often the first byte of c occurs */
VSTRING_COMMAND(vstring_max);       /* (s): largest byte */
VSTRING_COMMAND(vstring_min);       /* (s): smallest byte */
VSTRING_COMMAND(vstring_iota);      /* (n | a .. b | a, b): consecutive bytes */

/* Characters. */
VSTRING_COMMAND(vstring_expandCharClass); /* (spec): the members of a class */
/* (s [, a .. b]): every byte (is), some byte (has) belongs to the class. */
VSTRING_COMMAND(vstring_islower);
VSTRING_COMMAND(vstring_isupper);
VSTRING_COMMAND(vstring_isalpha);
VSTRING_COMMAND(vstring_isdigit);
VSTRING_COMMAND(vstring_isbdigit);
VSTRING_COMMAND(vstring_isodigit);
VSTRING_COMMAND(vstring_isxdigit);
VSTRING_COMMAND(vstring_isalphaNumeric);
VSTRING_COMMAND(vstring_isgraph);
VSTRING_COMMAND(vstring_isprint);
VSTRING_COMMAND(vstring_ispunct);
VSTRING_COMMAND(vstring_iscntrl);
VSTRING_COMMAND(vstring_isvowel);
VSTRING_COMMAND(vstring_isident);
VSTRING_COMMAND(vstring_isident1);
VSTRING_COMMAND(vstring_isdna);
VSTRING_COMMAND(vstring_isspace);
VSTRING_COMMAND(vstring_isascii);
VSTRING_COMMAND(vstring_haslower);
VSTRING_COMMAND(vstring_hasupper);
VSTRING_COMMAND(vstring_hasalpha);
VSTRING_COMMAND(vstring_hasdigit);
VSTRING_COMMAND(vstring_hasbdigit);
VSTRING_COMMAND(vstring_hasodigit);
VSTRING_COMMAND(vstring_hasxdigit);
VSTRING_COMMAND(vstring_hasalphaNumeric);
VSTRING_COMMAND(vstring_hasgraph);
VSTRING_COMMAND(vstring_hasprint);
VSTRING_COMMAND(vstring_haspunct);
VSTRING_COMMAND(vstring_hascntrl);
VSTRING_COMMAND(vstring_hasvowel);
VSTRING_COMMAND(vstring_hasident);
VSTRING_COMMAND(vstring_hasident1);
VSTRING_COMMAND(vstring_hasdna);
VSTRING_COMMAND(vstring_hasspace);
VSTRING_COMMAND(vstring_hasascii);
VSTRING_COMMAND(vstring_lowercase);  /* (s [, a .. b]): lower case */
VSTRING_COMMAND(vstring_uppercase);  /* (s [, a .. b]): upper case */
VSTRING_COMMAND(vstring_capitalise); /* (s): every word capitalised */
VSTRING_COMMAND(vstring_tr);         /* (from, to, s): bytes of from become those of to */

/* Joining, splitting, orders. */
VSTRING_COMMAND(vstring_join);        /* ([s, ...] [, separator]): one string */
VSTRING_COMMAND(vstring_implode);     /* ([s, ...]): first bytes */
VSTRING_COMMAND(vstring_explode);     /* (s [, a .. b]): list of one-byte strings */
VSTRING_COMMAND(vstring_split);       /* (s [, separators]): list of fields */
VSTRING_COMMAND(vstring_casejoin);    /* ([s, ...]): joined in mixed case */
VSTRING_COMMAND(vstring_casesplit);   /* (s): pieces at its capitals */
VSTRING_COMMAND(vstring_lex);         /* (s, t [, support]): lexicographic order, -1, 0 or 1 */
VSTRING_COMMAND(vstring_revlex);      /* (s, t [, support]): from the last byte */
VSTRING_COMMAND(vstring_shortlex);    /* (s, t [, support]): shorter first, then lex */
VSTRING_COMMAND(vstring_shortrevlex); /* (s, t [, support]): shorter first, then revlex */
VSTRING_COMMAND(vstring_wslo);        /* (s, t, weights): lighter first, then lex */
VSTRING_COMMAND(vstring_wreathorder); /* (s, t, weights): wreath order */
VSTRING_COMMAND(vstring_lrpo);        /* (s, t): recursive path order from the last byte */
VSTRING_COMMAND(vstring_rrpo);        /* (s, t): recursive path order from the first byte */
VSTRING_COMMAND(vstring_compare);     /* (s, t): s comes before t or equals it */
VSTRING_COMMAND(vstring_compareci);   /* (s, t): the same, case ignored */
VSTRING_COMMAND(vstring_sort);        /* (s): its bytes in increasing order */
VSTRING_COMMAND(vstring_issorted);    /* (s): they stand in non-decreasing order */
VSTRING_COMMAND(vstring_fmtmsg);      /* (format, ...): message with %1 .. %9, %-1 .. %-9, %0 */

/* Searching. */
VSTRING_COMMAND(vstring_search);      /* (pattern, text): first occurrence; either may be a list */
VSTRING_COMMAND(vstring_searchx);     /* (pattern, text): all occurrences */
VSTRING_COMMAND(vstring_hsearch);     /* (pattern, text, k): first with at most k mismatches */
VSTRING_COMMAND(vstring_hsearchx);    /* (pattern, text, k): all, with their mismatches */
VSTRING_COMMAND(vstring_psearch);     /* as hsearch */
VSTRING_COMMAND(vstring_psearchx);    /* as hsearchx */
VSTRING_COMMAND(vstring_asearch);     /* (pattern, text, k): first end within k edits */
VSTRING_COMMAND(vstring_asearchx);    /* (pattern, text, k): all ends */
VSTRING_COMMAND(vstring_asearchb);    /* (pattern, text, k, selector): by algorithm 1, 2 or 3 */
VSTRING_COMMAND(vstring_asearchxb);   /* (pattern, text, k, selector): likewise, all ends */
VSTRING_COMMAND(vstring_dictCreate);  /* ([s, ...] | builtin): number of a new dictionary */
VSTRING_COMMAND(vstring_dictObjSize); /* (id): number of words */
VSTRING_COMMAND(vstring_dictObjGet);  /* (id, k): word k */
VSTRING_COMMAND(vstring_dictObjSearch); /* (id, text): [position, word number], ... */
VSTRING_COMMAND(vstring_dictObjFree);   /* (id): 1 when freed */
VSTRING_COMMAND(vstring_regmatch);      /* (pattern, text [, name0, ...]): groups into names */
VSTRING_COMMAND(vstring_regsub);        /* (pattern, text, template): template of the first match */
VSTRING_COMMAND(vstring_regsubs);       /* (pattern = template, text): every match replaced */
VSTRING_COMMAND(vstring_regsplit);      /* (pattern, text): pieces between matches */
VSTRING_COMMAND(vstring_wild);          /* (pattern, text): wildcard match of the whole text */
VSTRING_COMMAND(vstring_wildTest);      /* (): runs the wildcard test table */
VSTRING_COMMAND(vstring_wildTester);    /* (): prints that table as a script */
VSTRING_COMMAND(vstring_subst);         /* (text, pattern, replacement): the first occurrence */
VSTRING_COMMAND(vstring_substx);        /* (text, pattern, replacement): every occurrence */

/* Combinatorics on words. */
VSTRING_COMMAND(vstring_period);      /* (w): least period */
VSTRING_COMMAND(vstring_isperiod);    /* (w, p): p is a period */
VSTRING_COMMAND(vstring_border);      /* (w): longest proper border */
VSTRING_COMMAND(vstring_borderlen);   /* (w): its length */
VSTRING_COMMAND(vstring_borderarray); /* (w): that of every prefix */
VSTRING_COMMAND(vstring_overlap);     /* (s, t): longest suffix of s that begins t */
VSTRING_COMMAND(vstring_lynfac);      /* (w): Lyndon factorisation */
VSTRING_COMMAND(vstring_minconj);     /* (w): least conjugate */
VSTRING_COMMAND(vstring_conjp);       /* (v, w): they are conjugate */
VSTRING_COMMAND(vstring_isprim);      /* (w): primitive */
VSTRING_COMMAND(vstring_primroot);    /* (w): primitive root */
VSTRING_COMMAND(vstring_monfac);      /* (w): monotone factors */
VSTRING_COMMAND(vstring_suffixarray); /* (s): positions of the suffixes in increasing order */
VSTRING_COMMAND(vstring_factorcount); /* (s [, n]): number of distinct factors [of length n] */
VSTRING_COMMAND(vstring_repetitions); /* (s): maximal ones as [position, length, period] */
VSTRING_COMMAND(vstring_lcsubstring); /* (s, t): longest common factor */
VSTRING_COMMAND(vstring_bwt);         /* (s): [last letters of the sorted rotations, row of s] */
VSTRING_COMMAND(vstring_unbwt);       /* (t, k): the word whose transform is t with row k */
VSTRING_COMMAND(vstring_isanagram);   /* (s, t): same letters equally often */
VSTRING_COMMAND(vstring_nextperm);  /* (s): next arrangement of its letters; FAIL behind the last */
VSTRING_COMMAND(vstring_rle);       /* (s): runs as [letter, length] */
VSTRING_COMMAND(vstring_morphism);  /* (s, [letter = image, ...] [, n]): image under its power */
VSTRING_COMMAND(vstring_fibword);   /* (n [, alphabet]): prefix of the Fibonacci word */
VSTRING_COMMAND(vstring_thuemorse); /* (n [, alphabet]): prefix of the Thue-Morse word */
VSTRING_COMMAND(vstring_christoffel); /* (p, q [, alphabet]): lower Christoffel word */
VSTRING_COMMAND(vstring_debruijn);    /* (alphabet, n): least de Bruijn word */
VSTRING_COMMAND(vstring_lyndonwords); /* (alphabet, n): Lyndon words of length n */

/* Sequences, alignment, statistics. */
VSTRING_COMMAND(vstring_tally);      /* (s | [s, ...] [, n]): [thing = number, ...] */
VSTRING_COMMAND(vstring_entropy);    /* (s): bits a letter, as a float */
VSTRING_COMMAND(vstring_wc);         /* (s): [newlines, tokens, bytes] */
VSTRING_COMMAND(vstring_edits);      /* (s, t): cigar of the least edits */
VSTRING_COMMAND(vstring_lcs);        /* (s, t): longest common subsequence */
VSTRING_COMMAND(vstring_align);      /* (s, t [, match = n, mismatch = n, gap = n]):
                                        [score, cigar, s, t] */
VSTRING_COMMAND(vstring_localalign); /* likewise, of factors: [score, i, j, cigar, s, t] */
VSTRING_COMMAND(vstring_revcomp);    /* (s [, dna | rna]): reverse complement */
VSTRING_COMMAND(vstring_translate);  /* (s): protein of a nucleotide sequence */

/* Distances and likeness. */
VSTRING_COMMAND(vstring_hd);           /* (s, t): Hamming distance */
VSTRING_COMMAND(vstring_leedist);      /* (s, t): Lee distance modulo 256 */
VSTRING_COMMAND(vstring_leewt);        /* (s): Lee weight modulo 256 */
VSTRING_COMMAND(vstring_prefixdist);   /* (s, t): prefix distance */
VSTRING_COMMAND(vstring_suffixdist);   /* (s, t): suffix distance */
VSTRING_COMMAND(vstring_levenshtein);  /* (s, t): Levenshtein distance */
VSTRING_COMMAND(vstring_editdist);     /* (s, t): |s| + |t| - 2 levenshtein(s, t) */
VSTRING_COMMAND(vstring_damerau);      /* (s, t): Damerau's distance */
VSTRING_COMMAND(vstring_osa);          /* (s, t): optimal string alignment */
VSTRING_COMMAND(vstring_indel);        /* (s, t): insertions and deletions */
VSTRING_COMMAND(vstring_jaro);         /* (s, t): likeness, 0.0 to 1.0 */
VSTRING_COMMAND(vstring_jarowinkler);  /* (s, t): raised for a common prefix */
VSTRING_COMMAND(vstring_ratio);        /* (s, t): likeness, 0.0 to 100.0 */
VSTRING_COMMAND(vstring_partialratio); /* (s, t): best of the shorter with a piece of the longer */
VSTRING_COMMAND(vstring_tokensort);    /* (s, t): ratio of the sorted tokens */
VSTRING_COMMAND(vstring_tokenset);     /* (s, t): by the sets of tokens */
VSTRING_COMMAND(vstring_cosine);       /* (s, t, q): of the numbers of q-grams */
VSTRING_COMMAND(vstring_closest); /* (word, [s, ...] [, k [, metric]]): [element, value], ... */

/* Randomness and digests. */
VSTRING_COMMAND(vstring_random);    /* (n [, class]): random string */
VSTRING_COMMAND(vstring_randperm);  /* (n): random permutation of 1 .. n */
VSTRING_COMMAND(vstring_randomise); /* ([seed]): reseeds the generator */
VSTRING_COMMAND(vstring_hash);      /* (s [, method = md5 | md4]): digest in hexadecimal */

/* Layout, language, time. */
VSTRING_COMMAND(vstring_wrap);   /* (text [, width [, options]]): lines of at most width columns */
VSTRING_COMMAND(vstring_fill);   /* (c, n): n copies of the first byte of c */
VSTRING_COMMAND(vstring_porter); /* (word): Porter stem */
VSTRING_COMMAND(vstring_lancaster); /* (word): Lancaster (Paice/Husk) stem */
VSTRING_COMMAND(vstring_pstem);     /* (word): singular */
VSTRING_COMMAND(vstring_prestem);   /* (word): without its prefixes */
VSTRING_COMMAND(vstring_stem);      /* (word [, stemmer = name [, trace]]): by the named stemmer */
VSTRING_COMMAND(vstring_soundex);   /* (name): Soundex key */
VSTRING_COMMAND(vstring_metaphone); /* (word): Metaphone key */
VSTRING_COMMAND(vstring_syllen);    /* (word): number of syllables */
VSTRING_COMMAND(vstring_ipsum);     /* ([paragraphs | words | characters = n]): placeholder text */
VSTRING_COMMAND(vstring_fmttime);   /* ([format [, when]]): date and time as text */

#ifdef __cplusplus
}
#endif

#endif /* VSTRING_H */
