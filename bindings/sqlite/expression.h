// An expression of the language, made ready once and evaluated for arguments _1, _2, ...
#pragma once
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "library.h"
#include "values.h"

namespace vstring_sqlite {

// Begins and ends outside of a Use.
class Expression {
 public:
  explicit Expression(std::string_view source);  // throws velmor::Failure
  ~Expression();
  Expression(const Expression&) = delete;
  Expression& operator=(const Expression&) = delete;

  // The value for arguments that are not NULL. Names that the expression assigns have no value
  // before and after. Throws velmor::Failure.
  HostObject value(Use& use, Arguments arguments);

 private:
  using ArgumentName = std::pair<std::size_t, HostObject>;  // n and _n

  std::optional<velmor::Expression> prepared_;
  std::vector<ArgumentName> names_;  // in increasing order
};

}  // namespace vstring_sqlite
