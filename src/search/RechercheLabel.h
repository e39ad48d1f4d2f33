#pragma once

#include <atomic>
#include <cstdint>
#include <stop_token>
#include <string>

#include "catalogue/IconesExtensions.h"
#include "catalogue/ListeFichiers.h"
#include "search/Requete.h"

// The rows of the current base that the select finds and the filter lets pass, in the order of the select. Directories,
// and folders inside archives, are left out as soon as something is filtered. Empty when it was asked to stop or the
// engine refuses. `nombre` takes the results so far; how many there will be nobody knows.
ListeFichiers RechercheLabel(const std::string& requete, const FiltreRecherche& filtre, IconesExtensions& icones,
                             const std::stop_token& arret, std::atomic<int32_t>& nombre);

// The same for what the window asks. In names alone it looks through the base's file of names, where there is one or
// can be, and asks the engine about the rows found there only.
ListeFichiers RechercheLabel(const DemandeRecherche& demande, const FiltreRecherche& filtre, IconesExtensions& icones,
                             const std::stop_token& arret, std::atomic<int32_t>& nombre);
