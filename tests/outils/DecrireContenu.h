#pragma once

#include "commun/Texte.h"
#include "extractors/Aiguillage.h"
#include "outils/Environnement.h"

inline constexpr const char* SansDescription = "(sans description)";

// Describes a file as a run does, through the branch of its extension.
inline std::string DecrireFichier(const Fichier& fichier, const std::string& extension)
{
    std::string description = SansDescription;
    const bool decrit = ChoisirBranche(extension).extraire({fichier, "D:\\essai." + extension, extension}, description);
    EXPECT_EQ(decrit, description != SansDescription);
    EXPECT_TRUE(Utf8Valide(description));
    return description;
}

// The same for a new file of these bytes.
inline std::string DecrireContenu(const std::filesystem::path& dossier, const std::string& extension,
                                  std::string_view contenu)
{
    const std::filesystem::path chemin = dossier / ("essai." + extension);
    Ecrire(chemin, contenu);
    return DecrireFichier(Fichier(chemin.string()), extension);
}

class TestDescription : public Environnement {
protected:
    struct Cas {
        const char* nom;
        std::string contenu, description;
    };

    // Each of these contents, a file after the other, has its description.
    void Verifier(const std::string& extension, std::initializer_list<Cas> liste) const
    {
        for (const Cas& cas : liste)
            EXPECT_EQ(DecrireContenu(travail_, extension, cas.contenu), cas.description) << cas.nom;
    }
};
