#include "measure.hpp"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <stdexcept>

namespace kelp::bench {
namespace {

constexpr double least_seconds = 0.01;

double processor_seconds() {
  timespec now = {};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

double resident_bytes() {
  long pages = 0;
  long resident = 0;
  std::FILE* const file = std::fopen("/proc/self/statm", "r");
  if (file == nullptr || std::fscanf(file, "%ld %ld", &pages, &resident) != 2) {
    return 0;
  }
  std::fclose(file);
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

double most_bytes(const rusage& usage) {
  return 1024.0 * static_cast<double>(usage.ru_maxrss);
}

double seconds_of(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

// The first run finds cold caches and pages that nobody has touched; where one run takes long, that
// is part of the work, where it is one of many, it is not.
Use run_in_child(const Work& work) {
  Use use;
  const double bytes = resident_bytes();
  double begin = processor_seconds();
  work();
  use.seconds = processor_seconds() - begin;
  if (use.seconds < least_seconds) {
    const int runs = 1 + static_cast<int>(least_seconds / std::max(use.seconds, 1e-7));
    begin = processor_seconds();
    for (int i = 0; i < runs; ++i) {
      work();
    }
    use.seconds = (processor_seconds() - begin) / runs;
  }
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  use.bytes = std::max(0.0, most_bytes(usage) - bytes);
  return use;
}

int wait_for(pid_t child, rusage& usage) {
  int status = 0;
  if (wait4(child, &status, 0, &usage) != child) {
    throw std::runtime_error("a child process was lost");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

[[noreturn]] void become(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& argument : command) {
    arguments.push_back(const_cast<char*>(argument.c_str()));
  }
  arguments.push_back(nullptr);
  const int nowhere = open("/dev/null", O_WRONLY);
  dup2(nowhere, STDOUT_FILENO);
  execv(arguments.front(), arguments.data());
  _exit(127);
}

}  // namespace

Use use_of(const Work& work) {
  std::array<int, 2> ends = {};
  if (pipe(ends.data()) != 0) {
    throw std::runtime_error("no pipe");
  }
  const pid_t child = fork();
  if (child == 0) {
    const Use use = run_in_child(work);
    const bool told = write(ends[1], &use, sizeof use) == sizeof use;
    _exit(told ? 0 : 1);
  }
  close(ends[1]);
  Use use;
  const bool told = read(ends[0], &use, sizeof use) == sizeof use;
  close(ends[0]);
  rusage usage = {};
  if (wait_for(child, usage) != 0 || !told) {
    throw std::runtime_error("a contender failed");
  }
  return use;
}

Use use_of(const std::vector<std::string>& command) {
  const pid_t child = fork();
  if (child == 0) {
    become(command);
  }
  rusage usage = {};
  const int status = wait_for(child, usage);
  if (status < 0 || status > 1) {  // 1: it has found something
    throw std::runtime_error("failed: " + command.front() + ' ' + command.at(1));
  }
  return {seconds_of(usage.ru_utime) + seconds_of(usage.ru_stime), most_bytes(usage)};
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

Ratio compare(const Contender& floor, const Contender& subject, int turns) {
  std::vector<double> ratios;
  std::array<std::vector<double>, 4> uses;
  for (int turn = 0; turn < turns; ++turn) {
    const Use least = floor();
    const Use use = subject();
    ratios.push_back(use.seconds / least.seconds);
    uses[0].push_back(least.seconds);
    uses[1].push_back(least.bytes);
    uses[2].push_back(use.seconds);
    uses[3].push_back(use.bytes);
  }
  std::sort(ratios.begin(), ratios.end());
  const std::size_t count = ratios.size();
  return {ratios[count / 2],
          ratios[count / 4],
          ratios[count - 1 - count / 4],
          {median(uses[0]), median(uses[1])},
          {median(uses[2]), median(uses[3])}};
}

}  // namespace kelp::bench
