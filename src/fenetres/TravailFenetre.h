#pragma once

#include <functional>

class QObject;

// For the `reveiller` of Travail and Consultation: has `livrer` called on the thread of `contexte`, by its event loop,
// unless `contexte` has gone by then. The function given back may be called on any thread while `contexte` lives.
std::function<void()> ReveilFenetre(QObject* contexte, std::function<void()> livrer);
