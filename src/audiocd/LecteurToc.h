#pragma once

#include <string>
#include <string_view>

#include "audiocd/ReponsesToc.h"
#include "platform/LecteurCD.h"

// One road to the table of contents of a disc. An object reads one disc.
class LecteurToc {
public:
    virtual ~LecteurToc() = default;

    // Reads the disc of a drive ("D:"). Blocks for up to some seconds; what fails is false.
    virtual bool InitMediaToc(std::string_view lecteur) = 0;

    const std::string& GetTOC() const { return toc_; }
    const std::string& GetTEXT() const { return texte_; }  // CD-Text, "" without

protected:
    // False, and the texts as they were, when the drive refuses or its answer can't be used.
    bool LireToc(LecteurCD& lecteur)
    {
        if (!lecteur.EnvoyerCommande(CommandeToc, reponseToc_))
            return false;
        const auto toc = BuildTocText(reponseToc_);
        if (toc)
            toc_ = *toc;
        return toc.has_value();
    }

    void LireCdText(LecteurCD& lecteur)
    {
        if (lecteur.EnvoyerCommande(CommandeCdText, reponseCdText_))
            texte_ = BuildCdText(reponseCdText_);
    }

    std::string toc_, texte_;

private:
    ReponseToc reponseToc_{};
    ReponseCdText reponseCdText_{};
};
