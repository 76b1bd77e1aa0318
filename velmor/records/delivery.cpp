#include "records/delivery.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <utility>

#include "output/form.h"
#include "output/write_all.h"

namespace velmor {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;

std::string counted(const Tally::Row& row, OutputForm form) {
  const std::string count = std::to_string(row.count);
  if (form == OutputForm::kJson) return "[" + count + "," + std::string(row.value) + "]";
  return count + "\t" + std::string(row.value);
}

}  // namespace

Delivery::Delivery(const Job& job, Progress& progress)
    : job_(job), progress_(progress), to_terminal_(isatty(STDOUT_FILENO) != 0) {}

void Delivery::deliver(const Answers& answers) {
  std::size_t done = 0;
  for (const Message& message : answers.messages) {
    write(std::string_view(answers.out).substr(done, message.at - done));
    done = message.at;
    show(message);
  }
  write(std::string_view(answers.out).substr(done));
  if (!answers.out.empty()) ended_ = answers.ended;
}

void Delivery::write(std::string_view out) {
  if (out.empty()) return;
  if (job_.task == Job::Task::kCount) return tally_.add(out);
  if (!std::exchange(ended_, true)) pending_ += job_.format.terminator();
  pending_ += out;
  if (pending_.size() >= kBlock) flush();
}

void Delivery::flush() {
  if (pending_.empty()) return;
  if (to_terminal_) progress_.hide();
  if (!write_all(STDOUT_FILENO, pending_))
    throw std::runtime_error(std::string("cannot write: ") + std::strerror(errno));
  pending_.clear();
}

void Delivery::show(const Message& message) {
  switch (message.kind) {
    case Message::Kind::kError:
      show_error(message, Verdict::kFailed);
      break;
    case Message::Kind::kUnknownCommand:
      show_error(message, Verdict::kUnknownCommand);
      break;
    case Message::Kind::kCarriageReturn:
      if (!std::exchange(warned_, true)) show(message.text);
      break;
    case Message::Kind::kInformation:
      show(message.text);
      break;
    case Message::Kind::kPrinted:
      pending_ += message.text;
      break;
  }
}

void Delivery::show_error(const Message& message, Verdict verdict) {
  verdict_ = std::max(verdict_, verdict);
  if (++errors_ <= job_.most_errors) show(message.text);
}

void Delivery::show(const std::string& line) {
  flush();
  progress_.hide();
  write_all(STDERR_FILENO, line + '\n');
}

void Delivery::complain(const std::string& error) {
  verdict_ = std::max(verdict_, Verdict::kFailed);
  show("Error, " + error);
}

void Delivery::write_counts() {
  for (const Tally::Row& row : tally_.rows()) {
    pending_ += counted(row, job_.form);
    pending_ += job_.format.terminator();
    if (pending_.size() >= kBlock) flush();
  }
}

void Delivery::finish() {
  write_counts();
  flush();
  if (errors_ > job_.most_errors)
    complain(std::to_string(errors_) + " evaluations failed, " + std::to_string(job_.most_errors) +
             " of them are shown");
}

}  // namespace velmor
