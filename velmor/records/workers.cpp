#include "records/workers.h"

#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <stdexcept>
#include <string>

#include "records/wire.h"

namespace velmor {
namespace {

std::runtime_error failure() {
  return std::runtime_error(std::string("cannot start a worker: ") + std::strerror(errno));
}

// What a worker does: answers chunks until there are no more.
int work(int socket, Evaluator& evaluator) {
  try {
    std::string bytes;
    Answers answers;
    for (Chunk chunk; receive_chunk(socket, chunk, bytes);) {
      const auto start = std::chrono::steady_clock::now();
      answers.clear();
      evaluator.answer(chunk, answers);
      if (!send_answers(socket, answers, std::chrono::steady_clock::now() - start)) return 1;
    }
    const std::string faults = evaluator.faults();
    if (!faults.empty()) std::fprintf(stderr, "Faults of the library:\n%s\n", faults.c_str());
    return faults.empty() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "Error, %s\n", error.what());
    return 1;
  }
}

}  // namespace

Workers::Workers(std::size_t count, Evaluator& evaluator, Delivery& delivery)
    : delivery_(delivery) {
  try {
    while (workers_.size() < count) start(evaluator);
  } catch (const std::exception&) {
    stop();
    throw;
  }
}

Workers::~Workers() { stop(); }

void Workers::start(Evaluator& evaluator) {
  int sockets[2];
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0) throw failure();
  const pid_t process = fork();
  if (process < 0) {
    const std::runtime_error error = failure();
    close(sockets[0]);
    close(sockets[1]);
    throw error;
  }
  if (process == 0) {
    // A socket that a fork holds open would never be seen to end.
    close(sockets[0]);
    for (const Worker& worker : workers_) close(worker.socket);
    _exit(work(sockets[1], evaluator));
  }
  close(sockets[1]);
  workers_.push_back({process, sockets[0]});
}

void Workers::answer(const Chunk& chunk) {
  const bool busy = given_ - collected_ == workers_.size();
  const int socket = workers_[given_ % workers_.size()].socket;
  std::chrono::nanoseconds time{0};
  if (busy && !receive_answers(socket, answers_, time))
    throw std::runtime_error("a worker has died");
  if (!send_chunk(socket, chunk)) throw std::runtime_error("a worker has died");
  ++given_;
  if (!busy) return;
  ++collected_;
  pace_.learn(time);
  delivery_.deliver(answers_);
}

void Workers::drain() {
  while (collected_ < given_) {
    std::chrono::nanoseconds time{0};
    if (!receive_answers(workers_[collected_ % workers_.size()].socket, answers_, time))
      throw std::runtime_error("a worker has died");
    ++collected_;
    pace_.learn(time);
    delivery_.deliver(answers_);
  }
}

bool Workers::finish() {
  drain();
  return stop();
}

// Lets the workers end; false when one of them did not end well.
bool Workers::stop() {
  bool ok = true;
  for (const Worker& worker : workers_) close(worker.socket);
  for (const Worker& worker : workers_) {
    int status = 0;
    while (waitpid(worker.process, &status, 0) < 0 && errno == EINTR) {
    }
    ok = ok && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  workers_.clear();
  return ok;
}

}  // namespace velmor
