#pragma once

#include <array>

// Texts of the browser's questions and dialogs, by their numbers.

enum MessageVue {
    SupprimerLImage,
    EcraserLeFichier,
    TitreCreer,
    TitreOuvrir,
    TitreSauvegarder,
    MemeNomDeBase,
    SupprimerLaBase,
    TitreLabel,
    TitreIcone,
    SupprimerLeMedia,
    TitreRepertoire,
    NomActuel,
    SupprimerLeRepertoire,
    SupprimerLArchive,
    MarqueOui,
    FiltreBases,
    NombreMessages
};

inline constexpr std::array<const char*, NombreMessages> Messages = {
    "Voulez-vous réellement supprimer l'image ?",
    "Ce fichier existe, voulez-vous vraiment l'écraser ?",
    "Créer un nouveau catalogue",
    "Ouvrir un catalogue",
    "Sauvegarder le catalogue en cours",
    "Veuillez saisir un autre nom différent que celui du catalogue courant !",
    "Êtes-vous sur de vouloir supprimer la base actuelle : ",
    "Modifier le label du média",
    "Modifier l'icône du média",
    "Voulez-vous réellement supprimer ce média : ",
    "Modifier le nom du répertoire",
    "Nom actuel du répertoire : ",
    "Voulez-vous réellement supprimer ce répertoire ainsi que ses sous répertoires du catalogue ?",
    "Voulez-vous réellement supprimer ce fichier compressé du catalogue ?",
    " oui",
    "Bases de ",
};
