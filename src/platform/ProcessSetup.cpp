#include "platform/ProcessSetup.h"

#include <csignal>
#include <sys/resource.h>

void Foundation::prepareProcess()
{
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    std::signal(SIGXFSZ, SIG_IGN);
}
