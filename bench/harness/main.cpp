// Runs jobs and writes a line for each contestant: job, who, nanoseconds of a run (the median of
// several rounds), or why there are none. Before anything is timed, answers are compared.
//
// The contestants of a job take turns, so that what slows the machine down slows all of them.
#include <malloc.h>
#include <sys/resource.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <deque>
#include <regex>

#include "harness/job.h"
#include "harness/texts.h"

namespace bench {
namespace {

struct Job {
  std::string name;
  std::function<std::vector<Contestant>()> make;
  Order order;
};

std::deque<Job>& jobs() {
  static std::deque<Job> all;
  return all;
}

struct Settings {
  int rounds = 7;
  double seconds = 0.04;  // that a contestant runs in each round
};

constexpr double kShortestBatch = 100e-6;  // much longer than to ask for the time
constexpr double kSlow = 0.2;              // a run that is not repeated where it is
constexpr double kHopeless = 10;           // so many times as slow as ours

// Of this process, and of those that it has waited for: what others do does not count.
double processor_seconds() {
  timespec own;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &own);
  rusage children;
  getrusage(RUSAGE_CHILDREN, &children);
  const auto seconds = [](auto whole, auto parts, double scale) {
    return static_cast<double>(whole) + static_cast<double>(parts) * scale;
  };
  return seconds(own.tv_sec, own.tv_nsec, 1e-9) +
         seconds(children.ru_utime.tv_sec, children.ru_utime.tv_usec, 1e-6) +
         seconds(children.ru_stime.tv_sec, children.ru_stime.tv_usec, 1e-6);
}

// Seconds of one run. What the runs left behind is collected in between, untimed.
double time_of(const Work& work, double at_least) {
  double total = 0;
  std::size_t runs = 0;
  for (std::size_t batch = 1; total < at_least;) {
    const double start = processor_seconds();
    for (std::size_t i = 0; i < batch; ++i) work();
    const double seconds = processor_seconds() - start;
    velmor_collect(heap());
    if (seconds < kShortestBatch) {
      batch *= 2;
      continue;
    }
    total += seconds;
    runs += batch;
  }
  return total / static_cast<double>(runs);
}

void report(const Job& job, const Contestant& contestant, const std::string& what) {
  std::printf("%s\t%s\t%s\n", job.name.c_str(), contestant.who.c_str(), what.c_str());
  std::fflush(stdout);
}

// False when somebody's answer is wrong.
bool run(const Job& job, const Settings& settings) {
  const std::vector<Contestant> contestants = job.make();
  const auto view = job.order == Order::told ? printed : printed_in_any_order;
  std::string ours;
  bool all_right = true;
  std::vector<std::vector<double>> times(contestants.size());
  for (std::size_t i = 0; i < contestants.size(); ++i) {
    const Contestant& each = contestants[i];
    const double start = processor_seconds();
    const HostObject answer = each.work();
    const double seconds = processor_seconds() - start;
    if (answer == 0) {
      report(job, each, "cannot");
      continue;
    }
    const std::string told = view(answer);
    if (i == 0) ours = told;
    const std::string expected = each.does == Does::a_part ? "true" : ours;
    if (each.does != Does::something && told != expected) {
      std::fprintf(stderr, "%s: %s says %.200s\nexpected %.200s\n", job.name.c_str(),
                   each.who.c_str(), told.c_str(), expected.c_str());
      report(job, each, "wrong");
      all_right = false;
      continue;
    }
    times[i].push_back(seconds);
  }
  velmor_collect(heap());
  const auto hopeless = [&](std::size_t i) {
    return i > 0 && times[i][0] > kSlow && times[i][0] > kHopeless * times[0][0];
  };
  std::vector<std::size_t> running;
  for (std::size_t i = 0; i < contestants.size(); ++i) {
    if (!times[i].empty() && !hopeless(i)) running.push_back(i);
  }
  for (const std::size_t i : running) times[i].clear();  // the first run was a cold one
  for (int round = 0; round < settings.rounds; ++round) {
    for (const std::size_t i : running) {
      times[i].push_back(time_of(contestants[i].work, settings.seconds));
    }
  }
  for (std::size_t i = 0; i < contestants.size(); ++i) {
    if (times[i].empty()) continue;
    const auto middle = times[i].begin() + static_cast<std::ptrdiff_t>(times[i].size() / 2);
    std::nth_element(times[i].begin(), middle, times[i].end());
    report(job, contestants[i], std::to_string(*middle * 1e9));
  }
  return all_right;
}

}  // namespace

void job(std::string name, std::function<std::vector<Contestant>()> make, Order order) {
  jobs().push_back({std::move(name), std::move(make), order});
}

}  // namespace bench

int main(int argc, char** argv) {
  using namespace bench;
  // Large results come from memory that is there already, not from fresh pages.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);

  Settings settings;
  std::string texts;
  std::vector<std::string> wanted;
  CLI::App app("Runs the jobs whose names match any of the patterns, or all of them.");
  app.add_option("--rounds", settings.rounds)->check(CLI::PositiveNumber);
  app.add_option("--seconds", settings.seconds)->check(CLI::PositiveNumber);
  app.add_option("--texts", texts, "where the real texts are")->required();
  app.add_option("pattern", wanted, "regular expressions");
  CLI11_PARSE(app, argc, argv);
  set_text_folder(texts);

  bool all_right = true;
  for (const Job& job : jobs()) {
    const auto matches = [&](const std::string& pattern) {
      return std::regex_search(job.name, std::regex(pattern));
    };
    if (!wanted.empty() && std::none_of(wanted.begin(), wanted.end(), matches)) continue;
    all_right = run(job, settings) && all_right;
    release_arguments();
  }
  return all_right ? 0 : 1;
}
