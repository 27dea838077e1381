#include "bench/services/PeersLog.h"

#include <spdlog/pattern_formatter.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>

#include <memory>

namespace vx::bench {

void WriteBySpdlog(const std::string& Path, const std::vector<std::string>& Texts, int Count, int FlushEach) {
  spdlog::logger logger("Bench", std::make_shared<spdlog::sinks::basic_file_sink_st>(Path, true));
  logger.set_formatter(std::make_unique<spdlog::pattern_formatter>("%d.%m.%Y %H:%M:%S,LOG,,%n,0,\"%v\"",
                                                                   spdlog::pattern_time_type::local, "\r\n"));
  if (FlushEach == 1) logger.flush_on(spdlog::level::trace);
  for (int i = 0; i < Count; ++i) {
    logger.info(Texts[static_cast<size_t>(i) % Texts.size()]);
    if (FlushEach > 1 && (i + 1) % FlushEach == 0) logger.flush();
  }
  logger.flush();
}

}  // namespace vx::bench
