#include "platform/Ceder.h"

#include <ctime>

#include <atomic>
#include <thread>
#include <utility>

namespace {
constexpr int64_t periode = 15'000'000;  // ns

std::function<void()> pompeDonnee;
std::atomic<std::thread::id> filFenetre;
int64_t dernierPassage = 0;

// The coarse clock moves by 1 to 4 ms and costs no system call.
int64_t Maintenant()
{
    timespec temps{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &temps);
    return int64_t{temps.tv_sec} * 1'000'000'000 + temps.tv_nsec;
}
}  // namespace

void Ceder()
{
    if (filFenetre.load(std::memory_order_relaxed) != std::this_thread::get_id())
        return;
    const int64_t maintenant = Maintenant();
    if (maintenant - dernierPassage < periode || !pompeDonnee)
        return;
    dernierPassage = maintenant;  // before as well: the pump may run work that yields
    pompeDonnee();
    dernierPassage = Maintenant();
}

void FixerPompe(std::function<void()> pompe)
{
    pompeDonnee = std::move(pompe);
    dernierPassage = 0;
    filFenetre = pompeDonnee ? std::this_thread::get_id() : std::thread::id();
}
