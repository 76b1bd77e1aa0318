// Chunks and answers between processes, through a socket.
#pragma once
#include <chrono>
#include <string>

#include "records/answers.h"
#include "records/chunks.h"

namespace velmor {

// Each returns false when the other side is gone. Nothing is sent but between a process and its
// fork, so values go as they lie in memory.
bool send_chunk(int socket, const Chunk& chunk);
bool receive_chunk(int socket, Chunk& chunk, std::string& bytes);  // `chunk` refers to `bytes`
bool send_answers(int socket, const Answers& answers, std::chrono::nanoseconds time);
bool receive_answers(int socket, Answers& answers, std::chrono::nanoseconds& time);

}  // namespace velmor
