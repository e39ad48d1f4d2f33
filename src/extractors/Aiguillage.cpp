#include "extractors/Aiguillage.h"

#include "extractors/DecrireImage.h"
#include "extractors/DecrireLBM.h"
#include "extractors/DecrireOgg.h"
#include "extractors/DecrirePCX.h"
#include "extractors/DecrireTGA.h"
#include "extractors/ExtraireDescription.h"
#include "extractors/LireVersionFichier.h"
#include "platform/Texte.h"
#include "store/Reglages.h"

namespace {

// An extractor that needs the content alone.
template <bool (*Decrire)(const Fichier&, std::string&)>
bool Contenu(const FichierADecrire& source, std::string& resultat)
{
    return Decrire(source.fichier, resultat);
}

bool Lbm(const FichierADecrire& source, std::string& resultat)
{
    return DecrireLBM(source.fichier, source.extension, resultat);
}

// One row per branch, in the order in which they are tested. To add a kind of file, name its function here.
constexpr Branche Branches[] = {
    {{"htm", "html"}, SectionDescriptions, "HTM", 1, false, ExtraireDescription},
    {{"diz"}, SectionDescriptions, "DIZ", 1, false, ExtraireDescription},
    {{"nfo"}, SectionDescriptions, "NFO", 1, false, ExtraireDescription},
    {{"bbs"}, SectionDescriptions, "BBS", 1, false, ExtraireDescription},
    {{"lnk"}, SectionDescriptions, "LNK", 1, false, ExtraireDescription},
    {{"mp3"}, SectionDescriptions, "MP3", 1, false, ExtraireDescription},
    {{"vbp"}, SectionDescriptions, "VBP", 1, false, ExtraireDescription},
    // The default of an archive kind is its own number, and only 1 means wanted: ARJ alone is on from the start.
    {{"zip"}, SectionSettings, "Compression 0", 0, true},
    {{"arj"}, SectionSettings, "Compression 1", 1, true},
    {{"lha", "lzh"}, SectionSettings, "Compression 2", 2, true},
    {{"rar"}, SectionSettings, "Compression 3", 3, true},
    {{"jpg", "jpeg"}, SectionDescriptions, "JPG", 1, false, Contenu<DecrireImage>},
    {{"bmp"}, SectionDescriptions, "BMP", 1, false, Contenu<DecrireImage>},
    {{"png"}, SectionDescriptions, "PNG", 1, false, Contenu<DecrireImage>},
    {{"gif"}, SectionDescriptions, "GIF", 1, false, Contenu<DecrireImage>},
    {{"pcx"}, SectionDescriptions, "PCX", 1, false, Contenu<DecrirePCX>},
    {{"tga"}, SectionDescriptions, "TGA", 1, false, Contenu<DecrireTGA>},
    {{"iff", "lbm"}, SectionDescriptions, "LBM", 1, false, Lbm},
    {{"pdf"}, SectionDescriptions, "PDF", 1, false, ExtraireDescription},
    {{"ogg"}, SectionDescriptions, "OGG", 1, false, Contenu<DecrireOgg>},
    {{"fon"}, SectionDescriptions, "FON", 1, false, Contenu<LireVersionFichier>},
    {{"sys"}, SectionDescriptions, "SYS", 1, false, Contenu<LireVersionFichier>},
};

constexpr Branche ToutLeReste = {{}, SectionDescriptions, "EXE", 1, false, Contenu<LireVersionFichier>};

}  // namespace

bool Branche::Voulue() const
{
    return GetSettingNombre(section, cle, defaut) == 1;
}

const Branche& ChoisirBranche(std::string_view extension)
{
    if (extension.empty())
        return ToutLeReste;
    for (const Branche& branche : Branches)
        if (extension == branche.extensions[0] || extension == branche.extensions[1])
            return branche;
    return ToutLeReste;
}

bool BrancheAdmise(const Branche& branche, std::string_view nom, std::string_view chemin)
{
    if (branche.cle == "DIZ")
        return Minuscules(nom) == "file_id.diz";
    if (branche.cle == ToutLeReste.cle)
        return !chemin.ends_with(".cda");
    return true;
}
