#pragma once

#include <stop_token>

// The run that reads a drive, process-wide: there is one at a time. Any thread may call all of this.

// A new run: what was asked of the one before is forgotten. The token tells it to stop.
std::stop_token CommencerCourse();
void ArreterCourse();
