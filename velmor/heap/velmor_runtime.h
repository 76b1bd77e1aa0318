/* velmor_runtime: a small host for vstring, for C and C++.
 *
 * A heap holds host objects and collects those that nothing reaches; its table offers the
 * operations that vstring calls. Make a heap, make argument values, call a command, read the
 * result or the error:
 *
 *     VelmorHeap *heap = velmor_heap_new();
 *     HostObject args[] = {velmor_string(heap, "hello")};
 *     HostObject result;
 *     if (velmor_call(heap, vstring_reverse, velmor_sequence(heap, 1, args), &result))
 *       puts(velmor_text(result));
 *     else
 *       fprintf(stderr, "%s\n", velmor_error(heap));
 *     velmor_heap_free(heap);
 *
 * The operations of a table take no heap, so one heap is current at a time: the one of the running
 * velmor_call, else the one whose table was asked for last. Objects live until velmor_collect finds
 * nothing that leads to them; it runs only when called. */
#ifndef VELMOR_RUNTIME_H
#define VELMOR_RUNTIME_H

#include <vstring.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct VelmorHeap VelmorHeap;
typedef HostObject (*VelmorCommand)(const HostTable* host, HostObject argseq);

/* Null when memory fails. Freeing a heap frees every object in it. */
VelmorHeap* velmor_heap_new(void);
void velmor_heap_free(VelmorHeap* heap);
const HostTable* velmor_table(VelmorHeap* heap);

/* ---- Making values ----
 * Lists, sets and sequences copy `items`; a sequence among the items is spliced in, as everywhere
 * in the host's language, and the empty sequence is NULL. Sets keep their order and drop
 * duplicates. 0 when memory fails. */
HostObject velmor_integer(VelmorHeap* heap, int64_t value);
HostObject velmor_big_integer(VelmorHeap* heap, const char* decimal); /* 0 unless -?[0-9]+ */
HostObject velmor_integer_of_limbs(VelmorHeap* heap, size_t n, const uint64_t* limbs,
                                   int negative); /* n 64-bit digits, the least significant first */
HostObject velmor_float(VelmorHeap* heap, double value);
HostObject velmor_string(VelmorHeap* heap, const char* text);
HostObject velmor_string_n(VelmorHeap* heap, const char* bytes,
                           size_t length);                  /* up to its first NUL */
HostObject velmor_name(VelmorHeap* heap, const char* text); /* the one with this text, for good */
HostObject velmor_sequence(VelmorHeap* heap, size_t n, const HostObject* items);
HostObject velmor_list(VelmorHeap* heap, size_t n, const HostObject* items);
HostObject velmor_set(VelmorHeap* heap, size_t n, const HostObject* items);
HostObject velmor_range(VelmorHeap* heap, HostObject low, HostObject high);
HostObject velmor_equation(VelmorHeap* heap, HostObject left, HostObject right);
HostObject velmor_function(VelmorHeap* heap, HostObject name, HostObject argseq); /* f(x, ...) */
/* A procedure of an evaluator's own, which prints as `text`; `data` is what the evaluator needs. */
HostObject velmor_procedure(VelmorHeap* heap, const char* text, HostObject data);

/* ---- Reading values ---- */
int velmor_tag(HostObject object);
const char* velmor_text(HostObject string_or_name); /* null for anything else */
size_t velmor_text_length(HostObject string_or_name);
int64_t velmor_to_integer(HostObject integer); /* 0 when it is none or does not fit */
size_t velmor_size(HostObject sequence_or_list_or_set);
HostObject velmor_element(HostObject sequence_or_list_or_set, size_t i); /* 1-based */
HostObject velmor_procedure_data(HostObject procedure);                  /* 0 when it is none */
/* The object in host syntax: "abc", [1, 2], a .. b, x = 1; bytes below 32 and from 127 as escapes.
 * The caller frees the text with free(). */
char* velmor_print(VelmorHeap* heap, HostObject object);

/* The same with valid UTF-8 as it is. */
char* velmor_print_utf8(VelmorHeap* heap, HostObject object);

/* ---- Names and evaluation ---- */
void velmor_assign(VelmorHeap* heap, HostObject name, HostObject value); /* 0: unassign */
HostObject velmor_value(VelmorHeap* heap, HostObject name);              /* 0 when it has none */
void velmor_protect(VelmorHeap* heap, HostObject name); /* no command can assign to it */
int velmor_is_protected(HostObject name);
/* Calls `visit` with each name that has a value. */
void velmor_each_value(VelmorHeap* heap, void (*visit)(void* context, HostObject name),
                       void* context);
/* What HostEvalProc calls for anything but convert(x, string) and sprintf("%a", x): 1 and *result,
 * or 0 with a message that velmor_fail (or a nested velmor_call) has set. Names among the arguments
 * have been replaced by their values, unless HostQuote guarded them. Operations of the table are
 * for commands: an evaluator makes values with the functions above. */
typedef int (*VelmorEvaluator)(void* context, VelmorHeap* heap, HostObject procedure,
                               HostObject argseq, HostObject* result);
void velmor_set_evaluator(VelmorHeap* heap, VelmorEvaluator evaluator, void* context);
void velmor_fail(VelmorHeap* heap, const char* message);

/* ---- Calling ---- */
/* Runs a command: 1 and *result, or 0 when it raised; velmor_error then tells what, with the
 * placeholders filled in. Nests: an evaluator may call commands. `result` may be null. */
int velmor_call(VelmorHeap* heap, VelmorCommand command, HostObject argseq, HostObject* result);
const char* velmor_error(VelmorHeap* heap);

/* ---- Output: HostPrintf (by default to stdout) and HostUserInfo (by default to stderr). Null puts
 * the default back. ---- */
void velmor_set_output(VelmorHeap* heap, void (*print)(void* context, const char* text),
                       void* context);
void velmor_set_userinfo(VelmorHeap* heap,
                         void (*info)(void* context, int64_t level, const char* package,
                                      const char* text),
                         void* context);

/* ---- Collecting ---- */
/* Frees what neither a name, nor a protected object, nor a rooted one reaches, and scribbles over
 * it, so that a stale reference shows. Returns how many objects it freed; does nothing during a
 * call. The cost is that of the objects that live and of those made since: collect when their
 * count or size has doubled. */
size_t velmor_collect(VelmorHeap* heap);
void velmor_root(VelmorHeap* heap, HostObject object); /* counted */
void velmor_unroot(VelmorHeap* heap, HostObject object);
size_t velmor_object_count(const VelmorHeap* heap); /* names, which stay for good, not counted */
size_t velmor_object_bytes(const VelmorHeap* heap);
size_t velmor_protected_count(const VelmorHeap* heap); /* HostGcProtect less HostGcAllow */

/* ---- For tests ---- */
/* Makes the k-th host operation from now (1-based) that can raise do so, once; 0 disarms. The
 * error reads "injected failure". */
void velmor_fail_operation(VelmorHeap* heap, size_t k);
/* Operations that raise leave the call by a C++ exception, as in some hosts, not by longjmp. */
void velmor_raise_by_exception(VelmorHeap* heap, int is_wanted);
size_t velmor_operation_count(const VelmorHeap* heap); /* of those operations, ever */
/* Faults of the library that the host noticed (an unlisted position called, a bad index, a value
 * of the wrong kind handed to an operation), a line each; empty when there were none. */
const char* velmor_faults(const VelmorHeap* heap);
void velmor_clear_faults(VelmorHeap* heap);
/* Makes texts as hosts do that are less strict: objects rounded up to a multiple of `words` words,
 * the added ones 0, or, with words = 1, `filler` in every byte behind the terminator. */
void velmor_set_text_layout(VelmorHeap* heap, size_t words, unsigned char filler);
/* Fills the attribute slot of a name (word 2 of the object), which is 0 otherwise. */
void velmor_set_attribute(VelmorHeap* heap, HostObject name, HostObject value);

#ifdef __cplusplus
}
#endif

#endif /* VELMOR_RUNTIME_H */
