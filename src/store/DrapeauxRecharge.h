#pragma once

#include <cstdint>

// What the browser must load anew at the next occasion, process-wide. Any thread may call all of this.

bool ArbreARecharger();
void FixerArbreARecharger(bool recharger);
bool IconesARecharger();
void FixerIconesARecharger(bool recharger);

// The media that was read last and should be selected by that loading: given out once, then 0.
int64_t ReprendreMediaAMontrer();
void FixerMediaAMontrer(int64_t numero);
