/* A complete host for vstring in plain C: a heap, the operations that the library calls, errors,
 * and procedures that commands call back. */
#include <setjmp.h>
#include <stdarg.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <vstring.h>

typedef HostObject (*Command)(const HostTable* host, HostObject argseq);
enum { TAG_FLOAT = 0x03, HEAP_WORDS = 1 << 20, MAX_NAMES = 1000 };

/* ---- Reading and printing objects: into a buffer, which cuts off what is too long ---- */
static uintptr_t* words_of(HostObject object) { return (uintptr_t*)object; }
static const char* text_of(HostObject object) { return (const char*)(words_of(object) + 3); }
static int tag_of(HostObject object) { return (int)(words_of(object)[0] >> 32 & 0x3f); }
static int64_t size_of(HostObject sequence) { return (uint32_t)words_of(sequence)[0] - 1; }
static int64_t value_of(HostObject integer) { return (int64_t)integer >> 1; }

static char line[4096];
static size_t line_length;

static void put(const char* text) {
  for (; *text != '\0' && line_length + 1 < sizeof line; ++text) line[line_length++] = *text;
  line[line_length] = '\0';
}

static void put_object(HostObject object) {
  char digits[24];
  if (object & 1) {
    snprintf(digits, sizeof digits, "%lld", (long long)value_of(object));
    put(digits);
  } else if (tag_of(object) == HOST_TAG_STRING) {
    put("\""), put(text_of(object)), put("\"");
  } else if (tag_of(object) == HOST_TAG_NAME) {
    put(text_of(object));
  } else if (tag_of(object) == TAG_FLOAT) {
    double value;
    memcpy(&value, words_of(object) + 1, sizeof value);
    snprintf(digits, sizeof digits, "%.15g", value);
    put(digits);
  } else if (tag_of(object) == HOST_TAG_EQUATION) {
    put_object(words_of(object)[1]), put(" = "), put_object(words_of(object)[2]);
  } else if (tag_of(object) == HOST_TAG_LIST) {
    put("["), put_object(words_of(object)[1]), put("]");
  } else if (tag_of(object) == HOST_TAG_SEQUENCE) {
    for (int64_t i = 1; i <= size_of(object); ++i) {
      if (i > 1) put(", ");
      put_object(words_of(object)[i]);
    }
  }
}

/* ---- Errors: the message goes into `line`, and the command is left ---- */
static jmp_buf* way_out; /* of the innermost call */

static void host_error(const char* message, ...) {
  HostObject objects[3] = {0};
  va_list list;
  va_start(list, message); /* one object follows for each of %1 to %3 in the message */
  for (int i = 0; i < 3 && strstr(message, i == 0 ? "%1" : i == 1 ? "%2" : "%3") != NULL; ++i)
    objects[i] = va_arg(list, HostObject);
  va_end(list);
  line_length = 0;
  for (const char* c = message; *c != '\0'; ++c) {
    const char text[] = {*c, '\0'};
    if (c[0] == '%' && c[1] >= '1' && c[1] <= '3')
      put_object(objects[*++c - '1']);
    else
      put(text);
  }
  if (way_out == NULL) exit(1); /* the heap is full, between two calls */
  longjmp(*way_out, 1);
}

/* ---- The heap: objects stand one behind the other, and live as long as the program ---- */
static uintptr_t heap[HEAP_WORDS]; /* all zero, as the padding of a text must be */
static size_t heap_used;

static HostObject new_object(int tag, size_t words) {
  if (words > HEAP_WORDS - heap_used) host_error("the heap is full");
  uintptr_t* const object = heap + heap_used;
  heap_used += words;
  object[0] = words | (uintptr_t)tag << 32;
  return (HostObject)object;
}

static HostObject new_text(int tag, const char* text) {
  const HostObject object = new_object(tag, 3 + strlen(text) / 8 + 1);
  memcpy(words_of(object) + 3, text, strlen(text));
  return object;
}

static HostObject new_integer(int64_t value) { return (HostObject)value * 2 + 1; }
static HostObject new_string(const char* text) { return new_text(HOST_TAG_STRING, text); }
static HostObject new_sequence(int64_t n) { return new_object(HOST_TAG_SEQUENCE, (size_t)n + 1); }
static HostObject null(void) { return new_sequence(0); }

static HostObject new_list(int64_t n) {
  const HostObject list = new_object(HOST_TAG_LIST, 2);
  words_of(list)[1] = new_sequence(n);
  return list;
}

static HostObject new_float(double value) {
  const HostObject object = new_object(TAG_FLOAT, 2);
  memcpy(words_of(object) + 1, &value, sizeof value);
  return object;
}

static HostObject new_equation(const char* op, HostObject left, HostObject right) {
  const HostObject equation = new_object(HOST_TAG_EQUATION, 3);
  (void)op; /* always "=" */
  words_of(equation)[1] = left;
  words_of(equation)[2] = right;
  return equation;
}

static HostObject new_name(const char* text, int64_t global) { /* one object for each text */
  static HostObject names[MAX_NAMES];
  static size_t count;
  (void)global;
  for (size_t i = 0; i < count; ++i)
    if (strcmp(text_of(names[i]), text) == 0) return names[i];
  if (count == MAX_NAMES) host_error("too many names");
  names[count] = new_text(HOST_TAG_NAME, text);
  return names[count++];
}

/* ---- The other operations ---- */
static int is_integer(HostObject object) { return object & 1; }
static int is_integer32(HostObject object) {
  return is_integer(object) && value_of(object) == (int32_t)value_of(object);
}
static int is_string(HostObject object) {
  return !is_integer(object) && tag_of(object) == HOST_TAG_STRING;
}
static int32_t to_integer32(HostObject integer) { return (int32_t)value_of(integer); }
static HostObject to_boolean(int64_t value) {
  return new_name(value == 0 ? "false" : value == 1 ? "true" : "FAIL", 1);
}
static void list_assign(HostObject list, int64_t i, HostObject element) {
  words_of(words_of(list)[1])[i] = element;
}
static void assign(HostObject name, HostObject value) { words_of(name)[1] = value; }
static HostObject quote(HostObject object) { return object; } /* eval_proc evaluates nothing */
static void keep(HostObject object) { (void)object; }         /* everything is kept anyway */
static void print(const char* format, ...) {
  va_list list;
  va_start(list, format);
  vprintf(format, list);
  va_end(list);
}
static void user_info(int64_t level, const char* package, const char* text) {
  if (level <= 1) printf("%s: %s\n", package, text);
}

/* The procedures of this host: convert(x, string), x as it is printed, and one that is a command.
 */
static const HostTable table;

static HostObject eval_proc(HostObject procedure, int64_t n, ...) {
  const char* const name = tag_of(procedure) == HOST_TAG_NAME ? text_of(procedure) : "";
  va_list list;
  va_start(list, n);
  const HostObject x = va_arg(list, HostObject);
  va_end(list);
  if (n == 2 && strcmp(name, "convert") == 0) {
    line_length = 0;
    put_object(x);
    return new_string(line);
  }
  if (n != 1 || strcmp(name, "uppercase") != 0) host_error("cannot call %1", procedure);
  const HostObject argseq = new_sequence(1);
  words_of(argseq)[1] = x;
  return vstring_uppercase(&table, argseq);
}

static const HostTable table = {.HostAssign = assign,
                                .HostError = host_error,
                                .HostEvalProc = eval_proc,
                                .HostIsInteger = is_integer,
                                .HostIsInteger32 = is_integer32,
                                .HostIsString = is_string,
                                .HostNewList = new_list,
                                .HostListAssign = list_assign,
                                .HostGcAllow = keep,
                                .HostGcProtect = keep,
                                .HostToInteger32 = to_integer32,
                                .HostNumArgs = size_of,
                                .HostToBoolean = to_boolean,
                                .HostNewExpSeq = new_sequence,
                                .HostNewInteger = new_integer,
                                .HostNewFloat = new_float,
                                .HostNewName = new_name,
                                .HostNull = null,
                                .HostNewExpr = new_equation,
                                .HostNewString = new_string,
                                .HostQuote = quote,
                                .HostUserInfo = user_info,
                                .HostPrintf = print};

/* ---- Calling a command, and showing what comes back ---- */
static HostObject call(const char* what, Command command, int64_t n, ...) {
  const HostObject argseq = new_sequence(n);
  va_list list;
  va_start(list, n);
  for (int64_t i = 1; i <= n; ++i) words_of(argseq)[i] = va_arg(list, HostObject);
  va_end(list);
  jmp_buf here;
  jmp_buf* const outer = way_out;
  way_out = &here;
  if (setjmp(here) != 0) {
    way_out = outer;
    printf("%s: error, %s\n", what, line);
    return null();
  }
  const HostObject result = command(&table, argseq);
  way_out = outer;
  line_length = 0;
  put_object(result);
  printf("%s: %s\n", what, line);
  return result;
}

int main(void) {
  const HostObject banana = new_string("banana");
  call("version", vstringVersion, 0);
  call("ana in it", vstring_searchx, 2, new_string("ana"), banana);
  call("begins with ban", vstring_isprefix, 2, new_string("ban"), banana);
  const HostObject factors = call("factors", vstring_lynfac, 1, banana);
  call("message", vstring_fmtmsg, 3, new_string("%1 is made of %2"), banana, factors);
  call("letters", vstring_tally, 1, banana);
  call("entropy", vstring_entropy, 1, new_string("abcd"));
  call("every letter", vstring_map, 2, new_name("uppercase", 1), banana);
  call("no procedure", vstring_map, 2, new_name("nothing", 1), banana);
  call("refused", vstring_take, 2, banana, new_integer(-1));
  call("too few", vstring_take, 1, banana);
  vstringRelease(&table); /* the library keeps nothing of this heap: it may go */
  return 0;
}
