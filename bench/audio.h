#pragma once

#include <string>
#include <vector>

// Commands on audio CDs, over a drive without hardware. Each takes its arguments behind its own name and throws
// std::runtime_error with what is wrong.
using Arguments = std::vector<std::string>;

inline constexpr const char* AideAudio =
    "  disque TOC                               identité, durées et requête d'un disque (\"150 20000 ... fin\")\n"
    "  toc FICHIER                              texte TOC d'une réponse de 804 octets\n"
    "  cdtexte FICHIER                          texte d'une réponse CD-Text de 4612 octets\n"
    "  cddb (--serveur HOTE:PORT | --local DOSSIER) TOC [--choix N]\n"
    "                                           cherche un disque ; N répond à la liste, 0 la ferme\n"
    "  sites HOTE:PORT                          liste des serveurs\n"
    "  soumettre HOTE:PORT CATEGORIE IDENTITE FICHIER   envoie une entrée\n"
    "  lecteur COMMANDE... [--toc TOC]          opérations (\"SetTrack 3\") ou commandes (\"play cd\") du lecteur :\n"
    "                                           ce qui arrive à un lecteur factice, ce qu'il répond\n"
    "  audio BASE IDENTIFIANT NOM TOC [--cdtexte FICHIER] [--serveur HOTE:PORT | --local DOSSIER] [--choix N]\n"
    "                                           catalogue un CD audio\n";

void Disque(const Arguments& arguments);
void Toc(const Arguments& arguments);
void CdTexte(const Arguments& arguments);
void Cddb(const Arguments& arguments);
void Sites(const Arguments& arguments);
void Soumettre(const Arguments& arguments);
void Lecteur(const Arguments& arguments);
// The current base is open already; see OuvrirBase.
void Audio(const Arguments& arguments);
