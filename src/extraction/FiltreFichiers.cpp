#include "extraction/FiltreFichiers.h"

#include "commun/Formes.h"
#include "commun/Motif.h"

const std::vector<FiltreFichiers>& FiltresFichiers()
{
    static const std::vector<FiltreFichiers> filtres = {
        {"Tous les fichiers (*.*)", "*.*"},
        {"Archives (*.zip, *.arj, *.lha, *.lzh, *.rar)", "*.zip;*.arj;*.lha;*.lzh;*.rar"},
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
