// Jobs: what ours and its peers all do.
#pragma once
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "harness/host.h"

namespace bench {

enum class Does {
  the_same,   // its answer must be ours
  a_part,     // it answers less, `true` when that is right
  something,  // a yardstick: how long a pass over the text takes, say
};

struct Contestant {
  std::string who;
  Work work;
  Does does = Does::the_same;
};

using Peers = std::vector<Contestant>;

// Ours and its peers.
inline std::vector<Contestant> against(Work ours, Peers peers) {
  peers.insert(peers.begin(), {"ours", std::move(ours)});
  return peers;
}

// One that makes a bool, a number or a text.
template <typename Make>
Contestant peer(const char* who, Make make, Does does = Does::the_same) {
  return {who, [make] { return result(make()); }, does};
}

enum class Order { told, free };  // of the elements of an answer

// Adds a job, called family/row. `make` runs when the job is wanted, since texts may be large; its
// first contestant is ours.
void job(std::string name, std::function<std::vector<Contestant>()> make,
         Order order = Order::told);

// Adds the jobs of one file when the program starts.
struct Jobs {
  explicit Jobs(void (*add)()) { add(); }
};

}  // namespace bench
