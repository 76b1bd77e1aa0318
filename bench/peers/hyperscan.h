// Patterns compiled by Hyperscan.
#pragma once
#ifdef VSTRING_PEER_HYPERSCAN
#include <hs.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace bench {

class Hyperscan {
 public:
  // Of literal strings, numbered from 0.
  explicit Hyperscan(const std::vector<std::string>& literals, unsigned flags = 0) {
    std::vector<const char*> texts;
    std::vector<std::size_t> lengths;
    std::vector<unsigned> all_flags(literals.size(), flags), numbers;
    for (const std::string& literal : literals) {
      numbers.push_back(static_cast<unsigned>(texts.size()));
      texts.push_back(literal.c_str());
      lengths.push_back(literal.size());
    }
    hs_database_t* database = nullptr;
    hs_compile_error_t* error = nullptr;
    hs_compile_lit_multi(texts.data(), all_flags.data(), numbers.data(), lengths.data(),
                         static_cast<unsigned>(texts.size()), HS_MODE_BLOCK, nullptr, &database,
                         &error);
    take(database, error);
  }

  // Of one expression, with what `extended` says of distances.
  Hyperscan(const std::string& expression, unsigned flags,
            const hs_expr_ext_t* extended = nullptr) {
    const char* const text = expression.c_str();
    const unsigned number = 0;
    hs_database_t* database = nullptr;
    hs_compile_error_t* error = nullptr;
    hs_compile_ext_multi(&text, &flags, &number, &extended, 1, HS_MODE_BLOCK, nullptr, &database,
                         &error);
    take(database, error);
  }

  bool accepted() const { return scratch_ != nullptr; }

  // Calls `found(number, end)` for each match until it says that it has enough.
  template <typename Found>
  void scan(const std::string& text, Found found) const {
    const auto hand_on = [](unsigned number, unsigned long long, unsigned long long end, unsigned,
                            void* context) {
      return (*static_cast<Found*>(context))(number, static_cast<std::size_t>(end)) ? 1 : 0;
    };
    hs_scan(database_.get(), text.data(), static_cast<unsigned>(text.size()), 0, scratch_.get(),
            hand_on, &found);
  }

  bool has(const std::string& text) const {
    bool any = false;
    scan(text, [&](unsigned, std::size_t) { return any = true; });
    return any;
  }

 private:
  void take(hs_database_t* database, hs_compile_error_t* error) {
    hs_free_compile_error(error);
    database_.reset(database, hs_free_database);
    hs_scratch_t* scratch = nullptr;
    if (database != nullptr && hs_alloc_scratch(database, &scratch) == HS_SUCCESS) {
      scratch_.reset(scratch, hs_free_scratch);
    }
  }
  std::shared_ptr<hs_database_t> database_;
  std::shared_ptr<hs_scratch_t> scratch_;
};

}  // namespace bench
#endif
