#include "support/random_calls.h"

#include <dlfcn.h>

#include <cstdlib>
#include <fstream>
#include <utility>

#include "support/fingerprint.h"

namespace vstring_test {

RandomCalls::RandomCalls(RandomArguments::Choose choose, const std::set<std::string>& without)
    : below_(std::move(choose)), arguments_(heap(), below_) {
  std::ifstream names(VSTRING_EXPORTS);
  for (std::string name; std::getline(names, name);) {
    if ((!name.starts_with("vstring_") && name != "vstringVersion") || without.contains(name))
      continue;
    void* const address = dlsym(RTLD_DEFAULT, name.c_str());
    commands_.push_back({name, reinterpret_cast<VelmorCommand>(address)});
  }
  velmor_set_output(
      heap(), [](void*, const char*) {}, nullptr);
  velmor_set_userinfo(
      heap(), [](void*, std::int64_t, const char*, const char*) {}, nullptr);
  const VelmorEvaluator evaluator = [](void* self, VelmorHeap*, HostObject, HostObject argseq,
                                       HostObject* result) {
    return static_cast<RandomCalls*>(self)->evaluate(argseq, *result) ? 1 : 0;
  };
  velmor_set_evaluator(heap(), evaluator, this);
}

// Nothing is remembered that leads into a heap which is no more.
RandomCalls::~RandomCalls() { vstringRelease(velmor_table(heap())); }

std::string RandomCalls::next() {
  HostObject result = 0;
  problem_.clear();
  if (call(result)) {
    char* const printed = velmor_print(heap(), result);
    answer_ = printed;
    std::free(printed);
  } else {
    answer_ = velmor_error(heap());
  }
  return problem_;
}

std::string RandomCalls::unanswered() const {
  std::string names;
  for (const Command& command : commands_) {
    if (!command.has_answered) names += command.name + " ";
  }
  return names;
}

bool RandomCalls::call(HostObject& result) {
  Command& command = commands_[below_(commands_.size())];
  const HostObject argseq = arguments_.sequence();
  const std::uint64_t before = fingerprint(argseq);
  const bool ok = velmor_call(heap(), command.entry, argseq, &result) != 0;
  command.has_answered |= ok;
  const std::string faults = velmor_faults(heap());
  if (before != fingerprint(argseq)) problem_ += command.name + " changed its arguments. ";
  if (!faults.empty()) problem_ += command.name + ": " + faults;
  if (!ok && *velmor_error(heap()) == '\0') problem_ += command.name + " raised nothing. ";
  return ok;
}

// What a procedure answers: what it was given, a truth value, anything, an error, what a command
// gives.
bool RandomCalls::evaluate(HostObject argseq, HostObject& result) {
  const std::size_t kind = below_(16);
  if (kind == 0) {
    velmor_fail(heap(), "raised by a procedure");
    return false;
  }
  if (kind == 1 && depth_ < 3) {
    ++depth_;
    const bool ok = call(result);
    --depth_;
    return ok;
  }
  if (kind <= 2) {
    result = arguments_.value(1);
  } else if (kind <= 5) {
    result = velmor_name(heap(), kind == 5 ? "false" : "true");
  } else {
    result = velmor_size(argseq) == 0 ? velmor_integer(heap(), 7) : velmor_element(argseq, 1);
  }
  return true;
}

}  // namespace vstring_test
