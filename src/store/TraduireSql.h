#pragma once

#include <string>
#include <string_view>

// Any thread may call this; texts are UTF-8.

// Turns a statement of the system's dialect into one for SQLite, the one place where this is done:
// "delete * from" loses its "*"; "X like 'motif'" becomes a call of the function that CorrespondMotif implements;
// texts behind "order by" get the French order. Quoted texts are never touched.
std::string TraduireSql(std::string_view texte);
