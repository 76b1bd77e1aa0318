#include "search/regex/template.h"

#include "bytes/copy.h"

namespace vstring::regex {

bool Template::read(Bytes text) {
  const auto end_piece = [this](int group) {
    const std::size_t at = pieces_.empty() ? 0 : pieces_.back().at + pieces_.back().length;
    return pieces_.push_back({at, plain_.size() - at, group});
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    int group = kNoGroup;
    Byte c = text[i];
    if (c == '&') {
      group = 0;
    } else if (c == '\\' && i + 1 < text.size()) {
      const Byte escaped = text[i + 1];
      const bool is_group = escaped >= '0' && escaped <= '9';
      if (is_group) group = escaped - '0';
      if (is_group || escaped == '&' || escaped == '\\') {
        c = escaped;
        ++i;
      }
    }
    if (!(group == kNoGroup ? plain_.push_back(c) : end_piece(group))) return false;
  }
  // Room behind, so that the last bytes are copied as quickly as the first.
  constexpr Byte kRoom[kCopyBlock] = {};
  return end_piece(kNoGroup) && plain_.append(kRoom);
}

}  // namespace vstring::regex
