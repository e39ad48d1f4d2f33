#pragma once

#include "commun/Texte.h"
#include "extractors/Aiguillage.h"
#include "outils/Environnement.h"

inline constexpr const char* SansDescription = "(sans description)";

// Describes a file as a run does, through the branch of its extension; `etat` is what the files before it left.
inline std::string DecrireFichier(const Fichier& fichier, const std::string& extension, EtatExtracteurs* etat = nullptr)
{
    EtatExtracteurs neuf;
    std::string description = SansDescription;
    const bool decrit =
        ExtraireDescription({fichier, "D:\\essai." + extension, extension, etat ? *etat : neuf}, description);
    EXPECT_EQ(decrit, description != SansDescription);
    EXPECT_TRUE(Utf8Valide(description));
    return description;
}

// The same for a new file of these bytes.
inline std::string DecrireContenu(const std::filesystem::path& dossier, const std::string& extension,
                                  std::string_view contenu, EtatExtracteurs* etat = nullptr)
{
    const std::filesystem::path chemin = dossier / ("essai." + extension);
    Ecrire(chemin, contenu);
    return DecrireFichier(Fichier(chemin.string()), extension, etat);
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
        EtatExtracteurs etat;
        for (const Cas& cas : liste)
            EXPECT_EQ(DecrireContenu(travail_, extension, cas.contenu, &etat), cas.description) << cas.nom;
    }
};
