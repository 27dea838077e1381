#include "bench/cold/Process.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include "bench/support/Bench.h"

extern char** environ;

namespace vx::bench {

namespace {

double ToSeconds(timeval Value) {
  return static_cast<double>(Value.tv_sec) + static_cast<double>(Value.tv_usec) * 1e-6;
}

template <typename T>
T MedianField(const std::vector<TProcessCost>& Costs, T TProcessCost::*Field) {
  std::vector<double> values;
  for (const TProcessCost& cost : Costs) values.push_back(static_cast<double>(cost.*Field));
  return static_cast<T>(Median(values));
}

}  // namespace

TProcessCost RunProcess(const std::vector<std::string>& Arguments) {
  std::vector<char*> arguments;
  for (const std::string& argument : Arguments) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  const double start = Seconds();
  pid_t process;
  const int error = posix_spawn(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
  Expect(error == 0, Arguments[0] + " can't be started");
  int status = 0;
  rusage usage{};
  Expect(wait4(process, &status, 0, &usage) == process, "waiting for " + Arguments[0]);
  const double seconds = Seconds() - start;
  posix_spawn_file_actions_destroy(&actions);
  Expect(WIFEXITED(status) && WEXITSTATUS(status) == 0, Arguments[0] + " " + Arguments[1]);
  return {seconds, ToSeconds(usage.ru_utime), ToSeconds(usage.ru_stime), static_cast<double>(usage.ru_maxrss) / 1024,
          usage.ru_minflt + usage.ru_majflt};
}

TProcessCost MedianOf(const std::vector<TProcessCost>& Costs) {
  return {MedianField(Costs, &TProcessCost::Seconds), MedianField(Costs, &TProcessCost::User),
          MedianField(Costs, &TProcessCost::System), MedianField(Costs, &TProcessCost::ResidentMb),
          MedianField(Costs, &TProcessCost::Faults)};
}

}  // namespace vx::bench
