// Counts up a key of its own in a configuration file that other processes write to at the same time:
//   shared_settings settings.ini anja 25
// Each round is a change stored at once. Started twice with two names, neither loses a change of the other.
#include <cstdio>
#include <cstdlib>

#include "platform/Numbers.h"
#include "services/uMsg.h"
#include "services/uSharedIni.h"

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  vx::TMsgHandlerLog log;
  log.Active = false;
  vx::Msg().SetLog(log);
  const vx::String name = vx::String::FromUtf8(argv[2]);
  vx::TSharedIni ini(vx::String::FromUtf8(argv[1]));
  for (int rounds = std::atoi(argv[3]); rounds > 0; --rounds) {
    ini.WriteInteger(u"Besuche", name, ini.ReadInteger(u"Besuche", name, 0) + 1);
    ini.WriteString(name, u"Zuletzt", vx::IntToStr(rounds));
    if (!ini.Store()) std::fprintf(stderr, "not stored yet, tried again with the next change\n");
  }
  return ini.Modified() ? 1 : 0;
}
