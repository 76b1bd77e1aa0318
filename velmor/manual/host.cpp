#include "manual/host.h"

#include <algorithm>
#include <istream>
#include <ostream>
#include <string>
#include <string_view>

#include "manual/roff.h"

namespace velmor {
namespace {

constexpr std::string_view kRule = "---- ";
constexpr std::string_view kLastSection = "Memory";

std::string_view without_blanks(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

// Words in backquotes are bold.
std::string marked(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t open = text.find('`');
    const std::size_t close = open == text.npos ? open : text.find('`', open + 1);
    result += roff::plain(text.substr(0, close == text.npos ? close : open));
    if (close == text.npos) break;
    result += roff::bold(text.substr(open + 1, close - open - 1));
    text.remove_prefix(close + 1);
  }
  return result;
}

// Takes the header line by line and writes its comments as text, its declarations as they stand.
class Page {
 public:
  explicit Page(std::ostream& out) : out_(out) {}

  // False when the contract ends here.
  bool add(std::string_view line) {
    const std::string_view words = without_blanks(line);
    if (!in_comment_ && !words.starts_with("/*")) {
      add_code(line);
      return true;
    }
    std::string_view text = words;
    if (!in_comment_) {
      inside_declaration_ = line != words;
      text.remove_prefix(2);
    } else if (text.starts_with('*') && !text.starts_with("*/")) {
      text.remove_prefix(1);
    }
    const std::size_t end = text.find("*/");
    in_comment_ = end == text.npos;
    return add_comment(text.substr(0, end));
  }

  void finish() {
    if (is_open_) out_ << ".fi\n";
    is_open_ = false;
  }

 private:
  void show_verbatim(bool wanted) {
    if (wanted && !is_open_) out_ << ".PP\n.nf\n";
    if (!wanted && is_open_) out_ << ".fi\n.PP\n";
    is_open_ = wanted;
  }

  void add_code(std::string_view line) {
    if (line.empty() || line[0] == '#' || line.starts_with("extern")) return;
    if (line.find("unlisted") != line.npos) return;
    show_verbatim(true);
    out_ << "    " << roff::plain(line) << '\n';
  }

  bool add_comment(std::string_view text) {
    if (text.starts_with(' ')) text.remove_prefix(1);
    if (text.starts_with("clang-format")) return true;
    if (text.starts_with(kRule)) {
      text.remove_prefix(kRule.size());
      text = text.substr(0, text.find(" --"));
      if (text == kLastSection) return false;
      show_verbatim(false);
      out_ << ".SH ";
      for (const char c : text) out_ << static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
      out_ << '\n';
    } else if (without_blanks(text).empty()) {
      show_verbatim(false);
      out_ << ".PP\n";
    } else if (inside_declaration_) {
      show_verbatim(false);
      out_ << marked(without_blanks(text)) << '\n';
    } else {
      show_verbatim(text.starts_with("  "));
      out_ << (is_open_ ? roff::plain(text) : marked(text)) << '\n';
    }
    return true;
  }

  std::ostream& out_;
  bool in_comment_ = false;
  bool inside_declaration_ = false;  // the comment is indented
  bool is_open_ = false;             // lines stay as they are
};

}  // namespace

void write_host_page(std::ostream& out, std::istream& header) {
  out << ".TH VSTRING\\-HOST 3 \"\" \"vstring " VELMOR_VERSION "\" \"vstring\"\n"
      << ".SH NAME\nvstring\\-host \\- how a computer\\-algebra host embeds vstring\n"
      << ".SH SYNOPSIS\n"
      << roff::bold("#include <vstring.h>") << "\n.SH DESCRIPTION\n";
  Page page(out);
  for (std::string line; std::getline(header, line) && page.add(line);) {
  }
  page.finish();
  out << ".SH SEE ALSO\n"
      << roff::bold("vstring") << "(3); vstring.h declares the containers that hosts may share "
      << "with the library, and says of every command what it takes.\n";
}

}  // namespace velmor
