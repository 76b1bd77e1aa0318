// The suffixes of a text, or of two texts, in order, with what neighbours have in common.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "words/suffix/suffix_array.h"

namespace vstring::words {

class SortedSuffixes {
 public:
  // O(n) time, 8 to 9 bytes a letter. Fails only for want of memory.
  Status sort(Bytes text) {
    if (!order_.resize(text.size()) || !agreeing_.resize(text.size())) return Status::out_of_memory;
    const Status status = suffix_array(text, {order_.data(), order_.size()});
    if (status == Status::ok) {
      common_prefixes(text, order_.view(), {agreeing_.data(), agreeing_.size()});
    }
    return status;
  }

  // The suffixes of both; those of t have offsets from |s| + 1 on. A zero byte, which stands in no
  // text, is put between them: no suffix agrees with another one past the end of its text.
  Status sort(Bytes s, Bytes t) {
    Buffer<Byte> both;
    if (s.size() >= kSuffixLimit || !both.resize(s.size() + 1 + t.size())) {
      return Status::out_of_memory;
    }
    const MutableBytes rest = copy_into({both.data(), both.size()}, s);
    rest[0] = 0;
    copy_into(rest.subspan(1), t);
    return sort(both.view());
  }

  std::size_t size() const { return order_.size(); }
  std::size_t offset(std::size_t rank) const { return static_cast<std::size_t>(order_[rank]); }
  // Letters that the suffix at `offset` shares with the one sorted just before.
  std::size_t agreeing(std::size_t offset) const {
    return static_cast<std::size_t>(agreeing_[offset]);
  }

 private:
  Buffer<std::int32_t> order_;
  Buffer<std::int32_t> agreeing_;
};

}  // namespace vstring::words
