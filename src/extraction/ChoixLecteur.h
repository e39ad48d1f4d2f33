#pragma once

#include <functional>
#include <string>

// What the drive chooser shows of the media that is wanted.
struct MediaDemande {
    std::string label, identifiant;
    std::string icone;   // bytes of an icon file, empty when the media has none of its own
    std::string invite;  // " L'unité actuelle : D:"
    // Whether the drive of a small letter holds what is wanted; asked beside the window's thread, without end where the
    // drive hangs. None: any drive will do.
    std::function<bool(char)> contient = {};
};

// Asks in which drive the media now lies.
class ChoixLecteur {
public:
    virtual ~ChoixLecteur() = default;
    // A letter of any case; 0 when the user gives up.
    virtual char Choisir(const MediaDemande& media) = 0;
};
