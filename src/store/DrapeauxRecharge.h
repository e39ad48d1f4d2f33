#pragma once

// What the browser must load anew at the next occasion, process-wide. Any thread may call all of this.

bool ArbreARecharger();
void FixerArbreARecharger(bool recharger);
bool IconesARecharger();
void FixerIconesARecharger(bool recharger);
