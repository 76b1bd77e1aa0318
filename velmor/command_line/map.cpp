#include "command_line/map.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <memory>
#include <span>
#include <stdexcept>
#include <string_view>

namespace velmor {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;

std::runtime_error failure(const std::string& what) {
  return std::runtime_error(what + ": " + std::strerror(errno));
}

// Lines of a file, of any length, read by the block.
class LineReader {
 public:
  LineReader(std::FILE* file, std::string name)
      : file_(file), name_(std::move(name)), buffer_(kBlock, '\0') {}

  // The next line, valid until the next call; `ended` tells whether a newline ended it.
  bool next(std::string_view& line, bool& ended) {
    std::size_t searched = 0;
    for (;;) {
      const std::string_view rest(buffer_.data() + begin_, end_ - begin_);
      const std::size_t newline = rest.find('\n', searched);
      ended = newline != rest.npos;
      if (ended || !refill()) {
        line = std::string_view(buffer_.data() + begin_, ended ? newline : end_ - begin_);
        begin_ += line.size() + (ended ? 1 : 0);
        return ended || !line.empty();
      }
      searched = rest.size();
    }
  }

 private:
  // Reads more behind what is left, which moves to the front; false at the end of the file.
  bool refill() {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    if (end_ == buffer_.size()) buffer_.resize(2 * buffer_.size());
    const std::size_t n = std::fread(buffer_.data() + end_, 1, buffer_.size() - end_, file_);
    if (n == 0 && std::ferror(file_) != 0) throw failure("cannot read " + name_);
    end_ += n;
    return n > 0;
  }

  std::FILE* file_;
  std::string name_;
  std::string buffer_;
  std::size_t begin_ = 0, end_ = 0;  // of what was read and not yet returned
};

// Standard output, written by the block.
class Writer {
 public:
  void write(std::string_view bytes) {
    pending_ += bytes;
    if (pending_.size() >= kBlock) flush();
  }

  void flush() {
    if (std::fwrite(pending_.data(), 1, pending_.size(), stdout) != pending_.size() ||
        std::fflush(stdout) != 0)
      throw failure("cannot write");
    pending_.clear();
  }

 private:
  std::string pending_;
};

class Mapper {
 public:
  Mapper(Session& session, const std::string& expression)
      : session_(session),
        expression_(session.prepare(expression)),
        line_name_(velmor_name(session.heap(), "_")) {}

  // `name` is empty when there is no need to tell one file from another.
  void run(std::FILE* file, const std::string& name, bool tell_name) {
    LineReader reader(file, name);
    std::string_view line;
    bool ended = false;
    for (std::size_t number = 1; reader.next(line, ended); ++number) {
      try {
        answer(line);
      } catch (const Failure& error) {
        ok_ = false;
        writer_.flush();
        std::cerr << error.report() << " (" << (tell_name ? name + ", " : "") << "line " << number
                  << ")\n";
      }
      if (ended) writer_.write("\n");
    }
  }

  bool finish() {
    writer_.flush();
    return ok_;
  }

 private:
  void answer(std::string_view line) {
    if (line.find('\0') != line.npos) throw Failure("a string cannot hold a zero byte");
    session_.collect_garbage();
    const HostObject text = velmor_string_n(session_.heap(), line.data(), line.size());
    if (text == 0) throw Failure("out of memory");
    velmor_assign(session_.heap(), line_name_, text);
    const HostObject value = session_.value_of(expression_);
    if (velmor_tag(value) == HOST_TAG_STRING)
      writer_.write({velmor_text(value), velmor_text_length(value)});
    else
      writer_.write(session_.print(value));
  }

  Session& session_;
  Expression expression_;
  HostObject line_name_;
  Writer writer_;
  bool ok_ = true;
};

struct CloseFile {
  void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

bool map(Session& session, const std::string& expression, const std::vector<std::string>& files) {
  Mapper mapper(session, expression);
  if (files.empty()) mapper.run(stdin, "standard input", false);
  for (const std::string& name : files) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(name.c_str(), "rb"));
    if (file == nullptr) throw failure("cannot open " + name);
    mapper.run(file.get(), name, files.size() > 1);
  }
  return mapper.finish();
}

}  // namespace velmor
