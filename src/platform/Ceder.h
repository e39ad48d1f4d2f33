#pragma once

#include <functional>

// Long work on the window thread calls Ceder at every step: it lets pending events run, at most once every 15 ms.
// Does nothing on other threads and where no pump was given.
void Ceder();

// Gives the pump, from the window thread.
void FixerPompe(std::function<void()> pompe);
