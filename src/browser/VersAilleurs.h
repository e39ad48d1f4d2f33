#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

// What the browser prepares for others.

// The search, opened next, will search in this media (number, decimal) by its label.
void PreparerRechercheMedia(std::string_view numero);

// The help that there is for the program in these folders: its help file, else the guide, else the first page of its
// documents. Empty when there is none.
std::string CheminAide(std::initializer_list<std::string> dossiers);
