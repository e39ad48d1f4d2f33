#pragma once

#include <optional>
#include <stop_token>
#include <string>
#include <vector>

// One plain HTTP request. No other protocol, no redirection; a proxy that the desktop configures is gone through.
struct RequeteHttp {
    std::string adresse;  // "http://hote:port/chemin"
    std::string agent;
    std::string utilisateur, motDePasse;  // sent along when there is a user, to the proxy too
    // What to POST, over HTTP/1.0 and with these headers ("Nom: valeur") in their order; a GET without it.
    std::optional<std::string> corps;
    std::vector<std::string> entetes;
};

struct ReponseHttp {
    long erreur = 0;    // 0, else a number for TexteErreurHttp; then nothing else is filled
    long statut = 0;    // 200...
    std::string corps;  // whatever the status is
};

inline constexpr size_t TailleMaximaleReponse = 4 * 1024 * 1024;
inline constexpr long DelaiRequete = 30;  // seconds, for the whole request

// Blocks until the answer is there, has failed or grown too large, or until the stop is asked for. Any thread.
ReponseHttp EnvoyerHttp(const RequeteHttp& requete, std::stop_token arret, long delai = DelaiRequete);

// What the system says of an error number; empty for one that it does not know.
std::string TexteErreurHttp(long erreur);
