#include "extraction/FiltreFichiers.h"

#include "commun/Formes.h"
#include "archives/ListerArchive.h"
#include "commun/Motif.h"

namespace {

// A pattern for each extension of an archive.
std::string MotifsArchives(std::string_view separateur)
{
    std::string motifs;
    for (const SorteArchive& sorte : SortesArchives())
        for (const std::string_view extension : sorte.extensions)
            if (!extension.empty())
                motifs.append(motifs.empty() ? "" : separateur).append("*.").append(extension);
    return motifs;
}

}  // namespace

const std::vector<FiltreFichiers>& FiltresFichiers()
{
    static const std::vector<FiltreFichiers> filtres = {
        {"Tous les fichiers (*.*)", "*.*"},
        {"Archives (" + MotifsArchives(", ") + ")", MotifsArchives(";")},
        {"Images (*.bmp, *.gif, *.jpg, *.png...)", "*.bmp;*.gif;*.jpg;*.jpeg;*.png;*.pcx;*.tga"},
        {"Sons (*.mp3, *.ogg, *.wav, *.cda)", "*.mp3;*.ogg;*.wav;*.cda"},
        {"Textes (*.txt, *.nfo, *.html, *.pdf...)", "*.txt;*.diz;*.nfo;*.bbs;*.htm;*.html;*.pdf"},
        {"Exécutables (*.exe, *.dll, *.ocx...)", "*.exe;*.dll;*.ocx;*.ax;*.tlb"},
    };
    return filtres;
}

bool CorrespondFiltre(std::string_view motifs, std::string_view nom)
{
    while (!motifs.empty())
        if (const std::string_view motif = Detacher(motifs, ';'); motif == "*.*" || CorrespondMotif(motif, nom))
            return true;
    return false;
}
