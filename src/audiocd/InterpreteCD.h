#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/LecteurCD.h"

// Carries out command strings of the old media control kind ("play cd", "status cd position") on audio CD drives.
// Words count without regard to case; "wait" and "notify" change nothing, as each command is done when it returns.
class InterpreteCD {
public:
    explicit InterpreteCD(MachineCD& machine) : machine_(machine) {}

    // False when the command is not understood or the drive refuses. `reponse` takes the text of a "status", "" else.
    bool Envoyer(std::string_view commande, std::string& reponse);

private:
    enum class Format { Msf, Tmsf, Millisecondes };
    struct Appareil {
        std::string alias;
        std::unique_ptr<LecteurCD> lecteur;
        Format format = Format::Msf;
        Msf place;            // where "play" begins; the last "seek"
        bool placee = false;  // `place` counts
        bool suspendu = false;
    };
    using Mots = std::vector<std::string>;  // of a command, in lower case

    Appareil* Trouver(const std::string& alias);
    bool Ouvrir(const Mots& mots);
    bool Fermer(const Mots& mots);
    bool Jouer(Appareil& appareil, const Mots& mots);
    bool Aller(Appareil& appareil, const Mots& mots);
    bool Regler(Appareil& appareil, const Mots& mots);
    bool Etat(Appareil& appareil, const Mots& mots, std::string& reponse);

    static bool LirePlace(Appareil& appareil, const std::string& texte, Msf& place);
    static std::string EcrirePlace(Appareil& appareil, const PlaceLecture& place);
    static std::string EcrireDuree(const Appareil& appareil, int trames);
    static PlaceLecture PlaceCourante(Appareil& appareil);

    MachineCD& machine_;
    std::vector<Appareil> appareils_;
};
