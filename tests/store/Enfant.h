#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>

#include <functional>

// Runs the function in a process of its own; its result, or -1 when it died.
inline int DansUnEnfant(const std::function<int()>& fonction)
{
    const pid_t enfant = fork();
    if (enfant == 0)
        _exit(fonction());
    int etat = 0;
    waitpid(enfant, &etat, 0);
    return WIFEXITED(etat) ? WEXITSTATUS(etat) : -1;
}

// No file of this process grows beyond this many bytes: what a full disk looks like.
inline void LimiterDisque(rlim_t octets)
{
    signal(SIGXFSZ, SIG_IGN);
    const rlimit limite{octets, octets};
    setrlimit(RLIMIT_FSIZE, &limite);
}

// A child that runs the function, then waits to be killed. Built once the function has run.
class EnfantEnAttente {
public:
    explicit EnfantEnAttente(const std::function<void()>& fonction)
    {
        int tube[2];
        if (pipe(tube) != 0)
            return;
        pid_ = fork();
        if (pid_ == 0) {
            fonction();
            [[maybe_unused]] const auto ecrits = write(tube[1], "x", 1);
            while (true)
                pause();
        }
        char octet;
        [[maybe_unused]] const auto lus = read(tube[0], &octet, 1);
        close(tube[0]);
        close(tube[1]);
    }
    ~EnfantEnAttente() { Tuer(); }
    EnfantEnAttente(const EnfantEnAttente&) = delete;
    EnfantEnAttente& operator=(const EnfantEnAttente&) = delete;

    void Tuer()
    {
        if (pid_ <= 0)
            return;
        kill(pid_, SIGKILL);
        waitpid(pid_, nullptr, 0);
        pid_ = -1;
    }

private:
    pid_t pid_ = -1;
};
