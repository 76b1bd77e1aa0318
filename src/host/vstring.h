/* vstring: string processing for computer-algebra hosts.
 *
 * This is the library's whole public interface, for C and C++, and all that a host author must
 * know. A host
 *   1. lays its objects out as described below,
 *   2. fills a HostTable with its own operations,
 *   3. links with the library, or loads it and resolves the commands that it wants by name (dlsym),
 *   4. calls each as  HostObject vstring_x(const HostTable *, HostObject argseq).
 *
 * A command reads its arguments in place, checks them in order, ignores surplus ones, and either
 * returns a host object or raises through HostError. It changes no argument; where it says that it
 * returns an argument, that is the object itself. Texts are bytes from 1 to 255, ended by a zero
 * byte; positions count from 1, and -1 is the last byte.
 *
 * Compatibility: within 5.x functions are added, and nothing that is declared here changes its
 * meaning; positions of the table never move, and those marked "not called" may be called later.
 * 64-bit little-endian only. */
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

/* The version of this header; vstringVersion tells that of the library. */
#define VSTRING_VERSION_MAJOR 5
#define VSTRING_VERSION_MINOR 0
#define VSTRING_VERSION_PATCH 0

/* ---- Host objects ---------------------------------------------------------------------------
 *
 * A HostObject is one machine word. If its lowest bit is set it is the integer v with the word
 * 2v + 1. Any other word but 0, which is no object, points to an object that begins with a header
 * word: bits 0 to 31 hold the object's length in 64-bit words, the header included; bits 32 to 37
 * the tag; the other bits are the host's. The words after it:
 *
 *   string, name   text of n bytes from word 3 on, a zero byte, then zero bytes to the end. No zero
 *                  byte within the text. The length is 3 + n/8 + 1 words, rounded down. Hosts may
 *                  round it up if they clear what that adds, or leave what follows the zero byte in
 *                  the last word as it was, but not both.
 *                  Words 1 and 2 of a string, and word 1 of a name, are the host's. Word 2 of a
 *                  name holds 0 or an object (its attribute). Unless that has HOST_TAG_SEQUENCE and
 *                  length 1, the name has a spelling of its own, which `fmtmsg` asks the host for;
 *                  a word with its lowest bit set is ignored.
 *   expression sequence   word i is element i, from 1 to length - 1; any tag, HOST_TAG_SEQUENCE or
 *                  another
 *   list, set      word 1: the expression sequence of the elements
 *   range a .. b, equation a = b   word 1: a, word 2: b
 *   anything else  whatever the host likes
 *
 * true, false and FAIL are names with these texts. Lists are immutable: one that was read may be
 * remembered by its address. An object stays in its place while a command runs that can reach it
 * from its arguments, or made it (a collector that moves objects pins them, or does not run
 * meanwhile), and for as long as it is protected. A text lives as long as its object. */
typedef uintptr_t HostObject;

enum {
  HOST_TAG_NEGATIVE = 0x01,
  HOST_TAG_NON_NEGATIVE = 0x02,
  HOST_TAG_STRING = 0x07,
  HOST_TAG_NAME = 0x08,
  HOST_TAG_CALL = 0x0a,
  HOST_TAG_EQUATION = 0x15,
  HOST_TAG_SEQUENCE = 0x1e,
  HOST_TAG_LIST = 0x1f,
  HOST_TAG_RANGE = 0x24,
  HOST_TAG_SET = 0x25,
  HOST_TAG_RTABLE = 0x27
};

/* ---- The host function table ----------------------------------------------------------------
 *
 * Position N is the N-th machine word, counted from 0. An unlisted position is never called and may
 * hold anything, and so may those marked "not called"; all others must be filled. (vstringVersion
 * calls HostNewInteger alone.) Truth values are 0 or not 0. A table stays as it is during a call. A
 * host may use several, as long as all lead to the same heap: an object that was protected through
 * one may be allowed through another. Before another heap is used, vstringRelease lets go of what
 * is kept of the first.
 *
 * Raising. HostError never returns: it leaves the command by longjmp or by a C++ exception, and so
 * may every operation marked (r). Nothing leaks, whichever way is taken, and the library is in
 * order for the next call: what the abandoned one held is let go of by the next command that begins
 * at the same depth of the stack or above. The library holds no locks.
 *
 * Nesting. An operation may call commands while the command that called it waits: from a
 * finaliser, or from a procedure that is evaluated. It does so on the stack of the command that
 * waits, and has returned from them when it returns. A text that is handed to an operation is good
 * until the operation returns, whatever it calls.
 *
 * Threads. One call at a time in the whole process. The calls of a sequence may come from different
 * threads; a command that waits and the commands called meanwhile may not, nor may a command begin
 * on one stack and go on on another (a coroutine). */
typedef void (*HostUnlisted)(void);

/* clang-format off */
typedef struct HostTable {
  HostUnlisted unlisted0[2];
  /*   2 (r) Assigns a value to a name: `regmatch` does. */
  void (*HostAssign)(HostObject name, HostObject value);
  HostUnlisted unlisted3[2];
  /*   5 (r) Raises the message, to be copied before the call is left, with %1 to %3 replaced by the
   *   HostObjects that follow it (as many as it asks for), in the host's syntax, and %-1 to %-3 by
   *   ordinal words. Never returns. */
  void (*HostError)(const char* message, ...);
  /*   6 not called */
  HostObject (*HostSeqToList)(HostObject sequence);
  HostUnlisted unlisted7[2];
  /*   9 (r) The value of a procedure for n objects that follow, evaluated unless they are quoted.
   *   The commands that take a procedure hand on what they were given, which may be anything but an
   *   integer, string, equation, range, list, set or rtable (what else cannot be called is refused
   *   here), with n = 1, or 2 for `foldl` and `foldr`: letters are new strings, numbers integers,
   *   and other objects quoted, unless they are strings or have their lowest bit set. The result
   *   must live until the command returns. `fmtmsg` calls with n = 2 the name `convert`, of any
   *   object, quoted, and the name `string`, quoted; the name `sprintf`, of the string "%a" and a
   *   name. Both must give a string or name, the text. */
  HostObject (*HostEvalProc)(HostObject procedure, int64_t n, ...);
  HostUnlisted unlisted10[4];
  /*  14 Whether it is an integer of any size. */
  int (*HostIsInteger)(HostObject object);
  HostUnlisted unlisted15[2];
  /*  17 Whether it is an integer from -2^31 to 2^31 - 1. */
  int (*HostIsInteger32)(HostObject object);
  HostUnlisted unlisted18[2];
  /*  20 not called */
  int (*HostIsName)(HostObject object);
  HostUnlisted unlisted21[4];
  /*  25 not called */
  int (*HostIsRTable)(HostObject object);
  /*  26 Whether it is a string; not for a name. */
  int (*HostIsString)(HostObject object);
  HostUnlisted unlisted27[3];
  /*  30 (r) A new list of n elements, 0 or more, which HostListAssign fills in. */
  HostObject (*HostNewList)(int64_t n);
  /*  31 Makes it element i, from 1 to n, of a list that HostNewList gave. */
  void (*HostListAssign)(HostObject list, int64_t i, HostObject element);
  HostUnlisted unlisted32[1];
  /*  33 Ends one HostGcProtect of the object. Must not raise. */
  void (*HostGcAllow)(HostObject object);
  /*  34 (r) Keeps the object, and what it leads to, alive and in its place until HostGcAllow has
   *   been called as often: they count. */
  void (*HostGcProtect)(HostObject object);
  HostUnlisted unlisted35[7];
  /*  42 Its value; asked of what HostIsInteger32 has said yes to. */
  int32_t (*HostToInteger32)(HostObject integer);
  HostUnlisted unlisted43[4];
  /*  47 not called */
  char* (*HostToCString)(HostObject string);
  /*  48 How many elements an argument sequence has. */
  int64_t (*HostNumArgs)(HostObject argseq);
  HostUnlisted unlisted49[6];
  /*  55 to 63 not called */
  HostObject (*HostRTableCreate)(void* settings, ...);
  void* (*HostRTableData)(HostObject rtable);
  void (*HostRTableSettings)(void* settings);
  void (*HostRTableGetSettings)(void* settings, HostObject rtable);
  HostUnlisted unlisted59[4];
  int64_t (*HostRTableNumElements)(HostObject rtable);
  HostUnlisted unlisted64[21];
  /*  85 The name true for 1, false for 0, FAIL for -1. */
  HostObject (*HostToBoolean)(int64_t value);
  HostUnlisted unlisted86[3];
  /*  89 (r) A new expression sequence of n elements, 1 or more. The library itself writes element i
   *   to word i, one after another, and makes the next one in between: a collector that runs
   *   meanwhile must find objects, or what it passes over, in the words not written yet. */
  HostObject (*HostNewExpSeq)(int64_t n);
  /*  90 not called */
  HostObject (*HostNewSeqOf)(int64_t n, ...);
  /*  91 (r) An integer. */
  HostObject (*HostNewInteger)(int64_t value);
  HostUnlisted unlisted92[1];
  /*  93 (r) A float. */
  HostObject (*HostNewFloat)(double value);
  /*  94 (r) The global name with this text; `global` is 1. */
  HostObject (*HostNewName)(const char* text, int64_t global);
  /*  95 The empty expression sequence, NULL: what a command without a value returns. */
  HostObject (*HostNull)(void);
  HostUnlisted unlisted96[2];
  /*  98 (r) An equation; `op` is "=". */
  HostObject (*HostNewExpr)(const char* op, HostObject left, HostObject right);
  /*  99 (r) A new string with a copy of this text. */
  HostObject (*HostNewString)(const char* text);
  /* 100 (r) An object that HostEvalProc hands on as this one, without evaluating it. */
  HostObject (*HostQuote)(HostObject object);
  HostUnlisted unlisted101[1];
  /* 102 (r) Shows a message to users who want those of this level: 3 of "Lexiva" (`regmatch`), 10
   *   of "PatternDictionary" (`dictObjFree`). */
  void (*HostUserInfo)(int64_t level, const char* package, const char* text);
  HostUnlisted unlisted103[15];
  /* 118 (r) Prints as printf does: `config` does. */
  void (*HostPrintf)(const char* format, ...);
} HostTable;
/* clang-format on */

/* ---- Identity, start and end ----------------------------------------------------------------- */

/* Optional. Sets the locale of the process to "C" for all categories, the first time: 1 when that
 * succeeded, 0 when it failed and at every later call. `regmatch` and `regsub` call it. */
VSTRING_API int64_t vstringInit(void);

/* Lets go of all that the library keeps from call to call: allows every host object that it has
 * protected, frees dictionaries, the compiled pattern and remembered weights, and puts the random
 * stream, the filter alphabet, the classes `last`, the Lancaster trace and the recorded message of
 * the regular expressions back to their start. What vstringInit did stays, and so do cclbm and y2k.
 * For a host that frees its heap or unloads the library; not from within a command. The library may
 * be used again, with this table or another one. Unloading it frees its own memory by itself. */
VSTRING_API void vstringRelease(const HostTable* host);

#define VSTRING_COMMAND(name) VSTRING_API HostObject name(const HostTable* host, HostObject argseq)

VSTRING_COMMAND(vstringVersion); /* VSTRING_VERSION_MAJOR; argseq is not read */
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
 * Square brackets mark optional arguments, a bar alternatives; texts are strings or names. A result
 * is a new string, an integer, or true or false as the description has it, unless it says
 * otherwise; "sequence" is an expression sequence of one or more elements. A host that wants lists
 * wraps it. `velmor help NAME` says more and shows an example. */

/* Substrings and editing. */
VSTRING_COMMAND(vstring_length); /* (s): number of bytes */
/* (s, a .. b): the bytes from a to b; empty for b = a - 1; s itself for all of it */
VSTRING_COMMAND(vstring_substr);
/* (s, n | chars): the first n bytes, s itself for n beyond the length; or those before the first
 * of chars */
VSTRING_COMMAND(vstring_take);
/* (s, n | chars): the bytes after the first n, or after the last of chars (all when there is
 * none) */
VSTRING_COMMAND(vstring_drop);
/* (s, n, t): the first n bytes of s, then t, then the rest; a negative n counts from the end */
VSTRING_COMMAND(vstring_insert);
VSTRING_COMMAND(vstring_repeat);  /* (s, n): s repeated n times; s itself for n = 1 */
VSTRING_COMMAND(vstring_reverse); /* (s): the bytes in reverse order */
VSTRING_COMMAND(vstring_rotate);  /* (s, n): rotated to the right by |n|; s itself for n = 0 */
/* (s, n): n added to every byte, modulo 256; a byte that becomes 0 ends the result */
VSTRING_COMMAND(vstring_shift);
/* (s, i, j): the bytes at i and j swapped; s itself when they are equal */
VSTRING_COMMAND(vstring_exchange);
/* (s, chars | class): the longest prefix made of these bytes, or of the class of that name */
VSTRING_COMMAND(vstring_snarf);
VSTRING_COMMAND(vstring_isprefix); /* (p, s): p begins s */
VSTRING_COMMAND(vstring_issuffix); /* (p, s): p ends s */
/* (c, s): whether the first byte of c, which may not be empty, occurs in s */
VSTRING_COMMAND(vstring_has);
/* (c, s): position of the first byte of s that is the first of c; 0 when there is none; the
 * length + 1 for an empty c */
VSTRING_COMMAND(vstring_strchr);
VSTRING_COMMAND(vstring_strrchr);   /* (c, s): the same for the last one */
VSTRING_COMMAND(vstring_ord);       /* (s): code of the first byte; 0 when s is empty */
VSTRING_COMMAND(vstring_char);      /* (n): the byte with code n; empty for 0 */
VSTRING_COMMAND(vstring_cap);       /* (s, left, right): s between left and right */
VSTRING_COMMAND(vstring_numboccur); /* (s, c): how often the first byte of c occurs */
VSTRING_COMMAND(vstring_max);       /* (s): the largest byte; code 1 for a text of fewer than two */
VSTRING_COMMAND(vstring_min); /* (s): the smallest byte; code 255 for a text of fewer than two */
/* (n | a .. b | a, b): the bytes with the codes 1 to n, or a to b (integers or texts) */
VSTRING_COMMAND(vstring_iota);

/* Characters. */
/* (spec): the members of a class such as "[a-z]" or "[^:alpha:]" */
VSTRING_COMMAND(vstring_expandCharClass);
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
VSTRING_COMMAND(vstring_support);    /* (s): its distinct bytes in increasing order */
VSTRING_COMMAND(vstring_squeeze);    /* (s [, chars]): runs of a byte become one */
VSTRING_COMMAND(vstring_delete);     /* (s, chars): s without the bytes of chars */
VSTRING_COMMAND(vstring_unaccent);   /* (s [, utf8 | latin1]): letters without their marks */

/* Encodings and escapes. */
VSTRING_COMMAND(vstring_encode);    /* (s, scheme): null, hex, base64, base64url, base32, rot13,
                                       percent or quoted */
VSTRING_COMMAND(vstring_decode);    /* (s, scheme): what was encoded */
VSTRING_COMMAND(vstring_visible);   /* (s): control characters as ^A, high bytes as M-a */
VSTRING_COMMAND(vstring_escape);    /* (s): as it stands in a literal */
VSTRING_COMMAND(vstring_unescape);  /* (s): escape sequences read */
VSTRING_COMMAND(vstring_bytes);     /* (s [, a .. b]): list of byte codes */
VSTRING_COMMAND(vstring_frombytes); /* ([code, ...]): string of these codes */

/* Joining, splitting, orders. */
/* ([s, ...] [, separator]): one string, with a blank or the separator between; the element
 * itself of a list of one */
VSTRING_COMMAND(vstring_join);
VSTRING_COMMAND(vstring_implode); /* ([s, ...]): first bytes */
VSTRING_COMMAND(vstring_explode); /* (s [, a .. b]): list of its bytes as strings */
/* (s [, separators]): list of the fields between separator bytes, empty ones included */
VSTRING_COMMAND(vstring_split);
VSTRING_COMMAND(vstring_casejoin); /* ([s, ...]): joined, each with its first letter a capital */
/* (s): sequence of pieces, each but the first beginning with a capital; one new string when
 * there is no other capital */
VSTRING_COMMAND(vstring_casesplit);
/* (s, t [, support]): lexicographic order: -1, 0 or 1 as s comes before t, equals it, comes
 * after it; support lists the letters in order */
VSTRING_COMMAND(vstring_lex);
/* (s, t [, support]): the same from the last byte; a suffix equals the whole */
VSTRING_COMMAND(vstring_revlex);
VSTRING_COMMAND(vstring_shortlex);    /* (s, t [, support]): shorter first, then lex */
VSTRING_COMMAND(vstring_shortrevlex); /* (s, t [, support]): shorter first, then revlex */
/* (s, t, [letter = weight, ...]): lighter first, then lex: -1, 0 or 1. The list is remembered,
 * and protected, until another one comes */
VSTRING_COMMAND(vstring_wslo);
/* (s, t, [letter = weight, ...]): wreath order: -1, 0 or 1; likewise */
VSTRING_COMMAND(vstring_wreathorder);
VSTRING_COMMAND(vstring_lrpo);    /* (s, t): recursive path order from the last byte: -1, 0 or 1 */
VSTRING_COMMAND(vstring_rrpo);    /* (s, t): recursive path order from the first byte: -1, 0 or 1 */
VSTRING_COMMAND(vstring_compare); /* (s, t): whether s comes before t or equals it */
VSTRING_COMMAND(vstring_compareci); /* (s, t): the same, case ignored */
/* (s): its bytes in increasing order; s itself when it has fewer than two */
VSTRING_COMMAND(vstring_sort);
VSTRING_COMMAND(vstring_issorted); /* (s): they stand in non-decreasing order */
/* (format, ...): the format with %1 to %9 replaced by arguments, %-1 to %-9 by ordinals, %0 by
 * all; a string without % is returned itself. Calls HostEvalProc */
VSTRING_COMMAND(vstring_fmtmsg);

/* Searching. */
/* (pattern, text): position of the first occurrence, or 0. (pattern, [text, ...]): list of
 * these. ([pattern, ...], text): list [position, pattern number] of the occurrence that ends
 * first, or [0, 0] */
VSTRING_COMMAND(vstring_search);
/* (pattern, text): sequence of the positions of all occurrences, overlapping ones too. (pattern,
 * [text, ...]): list of lists of them. ([pattern, ...], text): sequence of lists [position,
 * pattern number], by where they end. [] when nothing is found */
VSTRING_COMMAND(vstring_searchx);
/* (pattern, text, k): position of the first stretch that differs in at most k bytes, or 0 */
VSTRING_COMMAND(vstring_hsearch);
/* (pattern, text, k): sequence of lists [position, differences] of all, or [] */
VSTRING_COMMAND(vstring_hsearchx);
VSTRING_COMMAND(vstring_psearch);  /* (pattern, text, k): as hsearch */
VSTRING_COMMAND(vstring_psearchx); /* (pattern, text, k): as hsearchx */
/* (pattern, text, k): where the first stretch ends that is within k edits, or 0 */
VSTRING_COMMAND(vstring_asearch);
/* (pattern, text, k): sequence of all such ends, in increasing order, or [] */
VSTRING_COMMAND(vstring_asearchx);
/* (pattern, text, k, selector): as asearch, by algorithm 1, 2 or 3 */
VSTRING_COMMAND(vstring_asearchb);
/* (pattern, text, k, selector): as asearchx, by algorithm 1, 2 or 3 */
VSTRING_COMMAND(vstring_asearchxb);
/* ([s, ...] | builtin): number of a new dictionary, 1 to 511, or 0 for the builtin one. The list
 * is protected until it is freed */
VSTRING_COMMAND(vstring_dictCreate);
VSTRING_COMMAND(vstring_dictObjSize); /* (id): number of words */
/* (id, k): word k; empty when k is 0 or there is no such dictionary */
VSTRING_COMMAND(vstring_dictObjGet);
/* (id, text): sequence of lists [position, word number], by where they end, or [] */
VSTRING_COMMAND(vstring_dictObjSearch);
/* (id): 1, or 0 for a builtin dictionary that was not in use */
VSTRING_COMMAND(vstring_dictObjFree);
/* (pattern, text [, name0, ..., name9]): whether it matches somewhere. name0 is assigned the
 * match, name1 to name9 its groups; names whose group took no part, and all of them when nothing
 * matches, are left untouched */
VSTRING_COMMAND(vstring_regmatch);
/* (pattern, text, template): the template for the first match; FAIL when there is none */
VSTRING_COMMAND(vstring_regsub);
/* (pattern = template, text): a new string with every match replaced */
VSTRING_COMMAND(vstring_regsubs);
/* (pattern, text): sequence of the pieces between matches; text itself when nothing matches,
 * NULL for the empty one */
VSTRING_COMMAND(vstring_regsplit);
/* (pattern, text): whether the whole text matches; * any bytes, ? any byte, [a-z] [^a-z] sets */
VSTRING_COMMAND(vstring_wild);
/* (): runs a table of wildcard cases: true when all are right */
VSTRING_COMMAND(vstring_wildTest);
/* (): prints that table as a script to standard output; no value */
VSTRING_COMMAND(vstring_wildTester);
/* (text, pattern, replacement): the first occurrence replaced; text when there is none */
VSTRING_COMMAND(vstring_subst);
/* (text, pattern, replacement): every occurrence, from left to right; text when there is none */
VSTRING_COMMAND(vstring_substx);
/* (pattern, text [, overlapping]): how often it occurs, from the left without overlaps, or all */
VSTRING_COMMAND(vstring_count);
VSTRING_COMMAND(vstring_commonprefix); /* ([s, ...]): what they all begin with */
VSTRING_COMMAND(vstring_commonsuffix); /* ([s, ...]): what they all end with */
VSTRING_COMMAND(vstring_ispalindrome); /* (s): whether it equals its reversal */
/* (s): the longest factor that is a palindrome, the leftmost of several; s itself when it is one */
VSTRING_COMMAND(vstring_longestpalindrome);
/* (s [, m]): list of the maximal palindromes of at least m bytes, by default 2, as lists [position,
 * length], by where their middles lie */
VSTRING_COMMAND(vstring_palindromes);
/* (s [, pairs]): list of lists [i, j] of matching brackets, 0 for what an unmatched one lacks;
 * pairs are opening and closing bytes in turn, "()[]{}" by default */
VSTRING_COMMAND(vstring_brackets);
VSTRING_COMMAND(vstring_isbalanced); /* (s [, pairs]): whether every bracket is matched */

/* Procedures over strings. f is anything that HostEvalProc can call. It is called once for each
 * letter or number, in order, and may call commands, these too; what it returns is refused unless
 * it is of the kind that is named. */
VSTRING_COMMAND(vstring_map);    /* (f, s): the texts f(c) of the letters c, one after the other */
VSTRING_COMMAND(vstring_filter); /* (f, s): the letters for which f is true */
VSTRING_COMMAND(vstring_reject); /* (f, s): the letters for which f is false */
/* (f, z, s): f(... f(f(z, c1), c2) ..., cn) as f returned it; z when s is empty */
VSTRING_COMMAND(vstring_foldl);
/* (f, z, s): f(c1, ... f(cn, z) ...) as f returned it; z when s is empty */
VSTRING_COMMAND(vstring_foldr);
/* (f, s): list of the longest stretches of letters with equal texts or 32-bit integers f(c) */
VSTRING_COMMAND(vstring_groupby);
VSTRING_COMMAND(vstring_tabulate); /* (f, n): the texts f(1), ..., f(n), one after the other */

/* Combinatorics on words. */
VSTRING_COMMAND(vstring_period);    /* (w): least period; the length when there is no shorter one */
VSTRING_COMMAND(vstring_isperiod);  /* (w, p): whether p, from 1 to the length, is a period */
VSTRING_COMMAND(vstring_border);    /* (w): longest proper border; empty when there is none */
VSTRING_COMMAND(vstring_borderlen); /* (w): its length */
VSTRING_COMMAND(vstring_borderarray); /* (w): list of that of every prefix */
VSTRING_COMMAND(vstring_overlap);     /* (s, t): length of the longest suffix of s that begins t */
/* (w): list of the factors of the Lyndon factorisation, non-increasing */
VSTRING_COMMAND(vstring_lynfac);
VSTRING_COMMAND(vstring_minconj);  /* (w): least conjugate, by bytes as signed numbers */
VSTRING_COMMAND(vstring_conjp);    /* (v, w): they are conjugate */
VSTRING_COMMAND(vstring_isprim);   /* (w): primitive */
VSTRING_COMMAND(vstring_primroot); /* (w): primitive root; w itself when it is primitive */
VSTRING_COMMAND(vstring_monfac);   /* (w): list of monotone factors */
/* (s): list of the positions of the suffixes, in increasing order of these */
VSTRING_COMMAND(vstring_suffixarray);
/* (s [, n]): number of distinct factors, the empty one included, or of those of length n */
VSTRING_COMMAND(vstring_factorcount);
/* (s): list of lists [position, length, least period] of the maximal ones */
VSTRING_COMMAND(vstring_repetitions);
/* (s, t): longest common factor, of several the first in s; empty when there is none */
VSTRING_COMMAND(vstring_lcsubstring);
VSTRING_COMMAND(vstring_bwt);       /* (s): list [last letters of the sorted rotations, row of s] */
VSTRING_COMMAND(vstring_unbwt);     /* (t, k): the word whose transform is t with row k */
VSTRING_COMMAND(vstring_isanagram); /* (s, t): same letters equally often */
VSTRING_COMMAND(vstring_nextperm);  /* (s): next arrangement of its letters; FAIL behind the last */
VSTRING_COMMAND(vstring_rle);       /* (s): list of lists [letter, length] */
VSTRING_COMMAND(vstring_morphism);  /* (s, [letter = image, ...] [, n]): image under its power */
VSTRING_COMMAND(vstring_fibword);   /* (n [, alphabet]): prefix of the Fibonacci word */
VSTRING_COMMAND(vstring_thuemorse); /* (n [, alphabet]): prefix of the Thue-Morse word */
VSTRING_COMMAND(vstring_christoffel); /* (p, q [, alphabet]): lower Christoffel word */
VSTRING_COMMAND(vstring_debruijn);    /* (alphabet, n): least de Bruijn word */
/* (alphabet, n): list of the Lyndon words of length n, in increasing order */
VSTRING_COMMAND(vstring_lyndonwords);

/* Sequences, alignment, statistics. */
/* (s | [s, ...] [, n]): list of equations thing = number, in order of first appearance; with n
 * of the n most frequent ones */
VSTRING_COMMAND(vstring_tally);
VSTRING_COMMAND(vstring_entropy); /* (s): bits a letter, as a float */
VSTRING_COMMAND(vstring_wc);      /* (s): list [newlines, tokens, bytes] */
/* (s, t): the least edits as a cigar of D, I, = and X; empty when both are */
VSTRING_COMMAND(vstring_edits);
VSTRING_COMMAND(vstring_lcs); /* (s, t): a longest common subsequence; empty when there is none */
/* (s, t [, match = n] [, mismatch = n] [, gap = n]): list [score, cigar, s, t], with - for gaps */
VSTRING_COMMAND(vstring_align);
/* (s, t [, match = n] [, mismatch = n] [, gap = n]): list [score, position in s, position in t,
 * cigar, factor of s, factor of t] */
VSTRING_COMMAND(vstring_localalign);
VSTRING_COMMAND(vstring_revcomp);   /* (s [, dna | rna]): reverse complement */
VSTRING_COMMAND(vstring_translate); /* (s): protein of a nucleotide sequence */

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
VSTRING_COMMAND(vstring_jaro);         /* (s, t): likeness, a float from 0.0 to 1.0 */
VSTRING_COMMAND(vstring_jarowinkler);  /* (s, t): raised for a common prefix */
VSTRING_COMMAND(vstring_ratio);        /* (s, t): likeness, a float from 0.0 to 100.0 */
VSTRING_COMMAND(vstring_partialratio); /* (s, t): best of the shorter with a piece of the longer */
VSTRING_COMMAND(vstring_tokensort);    /* (s, t): ratio of the sorted tokens */
VSTRING_COMMAND(vstring_tokenset);     /* (s, t): by the sets of tokens */
VSTRING_COMMAND(vstring_cosine);       /* (s, t, q): of the numbers of q-grams */
/* (word, [s, ...] [, k [, metric]]): list of lists [element, value] of the k nearest, nearest
 * first; [] for the empty list */
VSTRING_COMMAND(vstring_closest);

/* Randomness and digests. */
/* (n [, class]): n random bytes, of a class by name, an alphabet, `binary`, or `last`: the class
 * before */
VSTRING_COMMAND(vstring_random);
VSTRING_COMMAND(vstring_randperm); /* (n): list of 1 to n in random order */
/* ([seed]): starts the stream of a seed other than 0, or of the time; no value */
VSTRING_COMMAND(vstring_randomise);
VSTRING_COMMAND(vstring_hash); /* (s [, method = md5 | md4]): digest in hexadecimal */
/* (s [, method = sha256 | sha1 | sha512 | crc32]): likewise */
VSTRING_COMMAND(vstring_digest);

/* Layout, language, time. */
/* (text [, width [, option = true | false, ...]]): lines of at most width columns, 80 by
 * default; text itself when it has no more bytes. Options: countbytes, expandtabs, obeylines,
 * obeyspaces */
VSTRING_COMMAND(vstring_wrap);
VSTRING_COMMAND(vstring_fill); /* (c, n): n copies of the first byte of c */
/* Those from pad to dedent give s itself when nothing changes. */
/* (s, width [, left | right | both [, fill]]): s and copies of the byte fill, a blank by default,
 * up to width bytes; right by default */
VSTRING_COMMAND(vstring_pad);
/* (s [, chars [, left | right | both]]): s without bytes of chars, white space by default, at its
 * ends; both by default */
VSTRING_COMMAND(vstring_trim);
VSTRING_COMMAND(vstring_expand);    /* (s [, tab]): blanks for tabs; stops at multiples of tab, 8 */
VSTRING_COMMAND(vstring_unexpand);  /* (s [, tab]): tabs for the blanks that begin a line */
VSTRING_COMMAND(vstring_indent);    /* (s, prefix | n): prefix or n blanks before each line */
VSTRING_COMMAND(vstring_dedent);    /* (s): without the blanks and tabs that all lines begin with */
VSTRING_COMMAND(vstring_lines);     /* (s): list of the lines, without their ends */
VSTRING_COMMAND(vstring_porter);    /* (word): Porter stem */
VSTRING_COMMAND(vstring_lancaster); /* (word): Lancaster (Paice/Husk) stem */
VSTRING_COMMAND(vstring_pstem);     /* (word): singular; without plural ending the word */
VSTRING_COMMAND(vstring_prestem);   /* (word): without its prefixes */
/* (word [, stemmer = porter | lancaster | paice | plural | prefix [, trace_rules |
 * no_trace_rules]]): by the named stemmer; the trace, which stays switched, goes to standard
 * error */
VSTRING_COMMAND(vstring_stem);
/* (name): Soundex key, a letter and three digits; "Z000" without letters */
VSTRING_COMMAND(vstring_soundex);
VSTRING_COMMAND(vstring_metaphone); /* (word): Metaphone key; empty without letters */
/* (name): key of the New York State Identification and Intelligence System; empty without
 * letters */
VSTRING_COMMAND(vstring_nysiis);
VSTRING_COMMAND(vstring_syllen);    /* (word): estimated number of syllables; 0 for the empty one */
VSTRING_COMMAND(vstring_words);     /* (s): list of the words, don't being one */
VSTRING_COMMAND(vstring_sentences); /* (s): list of the sentences */
/* (s | [s, ...], n): list of the factors of length n; or of n consecutive texts, joined with
 * blanks */
VSTRING_COMMAND(vstring_ngrams);
/* (s [, ease | grade]): Flesch's reading ease or Kincaid's grade, as a float; FAIL without words */
VSTRING_COMMAND(vstring_readability);
VSTRING_COMMAND(vstring_ipsum); /* ([paragraphs | words | characters = n]): placeholder text */
/* ([format [, seconds | offset = seconds | timestamp = seconds]]): the local time, so much
 * later, or of that time since the epoch, by the conversions of my_strftime; "%Y-%m-%d" by
 * default */
VSTRING_COMMAND(vstring_fmttime);
/* (s [, format]): the way back: the time since the epoch, in seconds, of the local time that s
 * shows, or of that of another zone with %z, the earlier one when clocks go back; FAIL when it
 * shows none */
VSTRING_COMMAND(vstring_parsetime);

#ifdef __cplusplus
}
#endif

#endif /* VSTRING_H */
