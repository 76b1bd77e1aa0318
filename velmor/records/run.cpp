#include "records/run.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "records/chunks.h"
#include "records/engine.h"

namespace velmor {
namespace {

// An open file; standard input is left open.
class Input {
 public:
  explicit Input(const std::string& name)
      : descriptor_(name == "-" ? STDIN_FILENO : open(name.c_str(), O_RDONLY | O_CLOEXEC)) {}
  ~Input() {
    if (descriptor_ > STDIN_FILENO) close(descriptor_);
  }
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  int descriptor() const { return descriptor_; }  // negative: could not be opened

 private:
  int descriptor_;
};

// The bytes that progress is told of; 0 when it is to be told of none.
std::size_t bytes_to_show(const Job& job) {
  const char* const terminal = std::getenv("TERM");
  if (isatty(STDERR_FILENO) == 0 || terminal == nullptr || std::string_view(terminal) == "dumb" ||
      (job.workers > 1 && isatty(STDOUT_FILENO) != 0))
    return 0;
  std::size_t bytes = 0;
  for (const std::string& name : job.files) {
    struct stat status;
    const int failed = name == "-" ? fstat(STDIN_FILENO, &status) : stat(name.c_str(), &status);
    if (failed == 0 && !S_ISREG(status.st_mode)) return 0;
    if (failed == 0) bytes += static_cast<std::size_t>(status.st_size);
  }
  return bytes;
}

class Run {
 public:
  Run(Session& session, const Job& job)
      : job_(job),
        evaluator_(session, job),
        progress_(bytes_to_show(job)),
        delivery_(job, progress_),
        engine_(make_engine(job, evaluator_, delivery_)) {}

  Verdict all() {
    for (std::size_t file = 0; file < job_.files.size(); ++file) {
      const int error = read(file);
      if (error == 0) continue;
      engine_->drain();
      const std::string& name = job_.files[file];
      delivery_.complain("cannot read " + (name == "-" ? "standard input" : name) + ": " +
                         std::strerror(error));
    }
    const bool sound = engine_->finish();
    delivery_.finish();
    return std::max(delivery_.verdict(), sound ? Verdict::kFine : Verdict::kFailed);
  }

 private:
  // errno when the file cannot be read, else 0.
  int read(std::size_t file) {
    const Input input(job_.files[file]);
    if (input.descriptor() < 0) return errno;
    ChunkReader reader(input.descriptor(), job_.format, [this] {
      engine_->drain();
      delivery_.flush();
    });
    for (Chunk chunk; reader.next(engine_->wanted(), chunk);) {
      chunk.file = file;
      engine_->answer(chunk);
      progress_.advance(chunk.bytes.size());
    }
    return reader.error();
  }

  const Job& job_;
  Evaluator evaluator_;
  Progress progress_;
  Delivery delivery_;
  std::unique_ptr<Engine> engine_;
};

}  // namespace

Verdict run_job(Session& session, const Job& job) { return Run(session, job).all(); }

}  // namespace velmor
