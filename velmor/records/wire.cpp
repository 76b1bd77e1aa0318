#include "records/wire.h"

#include <sys/socket.h>

#include <cerrno>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace velmor {
namespace {

bool send_bytes(int socket, const char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t n = send(socket, bytes, size, MSG_NOSIGNAL);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    bytes += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

bool receive_bytes(int socket, char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t n = recv(socket, bytes, size, 0);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    bytes += n;
    size -= static_cast<std::size_t>(n);
  }
  return true;
}

template <class Value>
bool send_value(int socket, const Value& value) {
  static_assert(std::is_trivially_copyable_v<Value>);
  return send_bytes(socket, reinterpret_cast<const char*>(&value), sizeof value);
}

template <class Value>
bool receive_value(int socket, Value& value) {
  static_assert(std::is_trivially_copyable_v<Value>);
  return receive_bytes(socket, reinterpret_cast<char*>(&value), sizeof value);
}

bool send_text(int socket, std::string_view text) {
  return send_value(socket, text.size()) && send_bytes(socket, text.data(), text.size());
}

bool receive_text(int socket, std::string& text) {
  std::size_t size = 0;
  if (!receive_value(socket, size)) return false;
  text.resize(size);
  return receive_bytes(socket, text.data(), size);
}

struct ChunkHead {
  std::size_t first_line, file;
};

struct AnswersHead {
  std::chrono::nanoseconds time;
  std::size_t messages;
  bool ended;
};

struct MessageHead {
  Message::Kind kind;
  std::size_t at;
};

}  // namespace

bool send_chunk(int socket, const Chunk& chunk) {
  return send_value(socket, ChunkHead{chunk.first_line, chunk.file}) &&
         send_text(socket, chunk.bytes);
}

bool receive_chunk(int socket, Chunk& chunk, std::string& bytes) {
  ChunkHead head;
  if (!receive_value(socket, head) || !receive_text(socket, bytes)) return false;
  chunk = {bytes, head.first_line, head.file};
  return true;
}

bool send_answers(int socket, const Answers& answers, std::chrono::nanoseconds time) {
  bool sent = send_value(socket, AnswersHead{time, answers.messages.size(), answers.ended}) &&
              send_text(socket, answers.out);
  for (const Message& message : answers.messages)
    sent = sent && send_value(socket, MessageHead{message.kind, message.at}) &&
           send_text(socket, message.text);
  return sent;
}

bool receive_answers(int socket, Answers& answers, std::chrono::nanoseconds& time) {
  AnswersHead head;
  if (!receive_value(socket, head) || !receive_text(socket, answers.out)) return false;
  time = head.time;
  answers.ended = head.ended;
  answers.messages.clear();
  for (std::size_t i = 0; i < head.messages; ++i) {
    MessageHead message;
    std::string text;
    if (!receive_value(socket, message) || !receive_text(socket, text)) return false;
    answers.messages.push_back({message.kind, message.at, text});
  }
  return true;
}

}  // namespace velmor
