#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <functional>

// Runs the function in a process of its own; true when it says so, false when it says no or dies.
inline bool DansUnEnfant(const std::function<bool()>& fonction)
{
    const pid_t enfant = fork();
    if (enfant == 0)
        _exit(fonction() ? 0 : 1);
    int etat = -1;
    waitpid(enfant, &etat, 0);
    return etat == 0;
}

// The same as an ordinary user, from whom files can be hidden.
inline bool SansPrivileges(const std::function<bool()>& fonction)
{
    return DansUnEnfant([&] { return (geteuid() != 0 || setuid(65534) == 0) && fonction(); });
}

// Ends the process as a crash does.
inline bool Mourir()
{
    return kill(getpid(), SIGKILL) != 0;
}

// No file of this process grows beyond this many bytes: what a full disk looks like.
inline void LimiterDisque(rlim_t octets)
{
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{octets, octets};
    setrlimit(RLIMIT_FSIZE, &limite);
}
