#include "extractors/Aiguillage.h"

#include "commun/Texte.h"
#include "extractors/DecrireImage.h"
#include "extractors/DecrireLBM.h"
#include "extractors/DecrireOgg.h"
#include "extractors/DecrirePCX.h"
#include "extractors/DecrireTGA.h"
#include "extractors/ExtraireDescription.h"
#include "extractors/LireVersionFichier.h"
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

constexpr uint64_t EnteteMz = 64;   // the DOS header of an executable
constexpr uint64_t TitreVide = 15;  // "<title></title>"

// One row per branch, in the order in which they are tested. To add a kind of file, name its function here.
constexpr Branche Branches[] = {
    {{"htm", "html"}, SectionDescriptions, "HTM", 1, false, ExtraireDescription, TitreVide},
    {{"diz"}, SectionDescriptions, "DIZ", 1, false, ExtraireDescription, 1},
    {{"nfo"}, SectionDescriptions, "NFO", 1, false, ExtraireDescription, 1},
    {{"bbs"}, SectionDescriptions, "BBS", 1, false, ExtraireDescription, 1},
    {{"lnk"}, SectionDescriptions, "LNK", 1, false, ExtraireDescription},
    {{"mp3"}, SectionDescriptions, "MP3", 1, false, ExtraireDescription},
    {{"vbp"}, SectionDescriptions, "VBP", 1, false, ExtraireDescription, 1},
    // The default of an archive kind is its own number, and only 1 means wanted: ARJ alone is on from the start.
    {{"zip"}, SectionSettings, "Compression 0", 0, true},
    {{"arj"}, SectionSettings, "Compression 1", 1, true},
    {{"lha", "lzh"}, SectionSettings, "Compression 2", 2, true},
    {{"rar"}, SectionSettings, "Compression 3", 3, true},
    {{"jpg", "jpeg"}, SectionDescriptions, "JPG", 1, false, Contenu<DecrireImage>, 3},
    {{"bmp"}, SectionDescriptions, "BMP", 1, false, Contenu<DecrireImage>, 3},
    {{"png"}, SectionDescriptions, "PNG", 1, false, Contenu<DecrireImage>, 3},
    {{"gif"}, SectionDescriptions, "GIF", 1, false, Contenu<DecrireImage>, 3},
    {{"pcx"}, SectionDescriptions, "PCX", 1, false, Contenu<DecrirePCX>},
    {{"tga"}, SectionDescriptions, "TGA", 1, false, Contenu<DecrireTGA>},
    {{"iff", "lbm"}, SectionDescriptions, "LBM", 1, false, Lbm, 4},
    {{"pdf"}, SectionDescriptions, "PDF", 1, false, ExtraireDescription},
    {{"ogg"}, SectionDescriptions, "OGG", 1, false, Contenu<DecrireOgg>, 1},
    {{"fon"}, SectionDescriptions, "FON", 1, false, Contenu<LireVersionFichier>, EnteteMz},
    {{"sys"}, SectionDescriptions, "SYS", 1, false, Contenu<LireVersionFichier>, EnteteMz},
};

constexpr Branche ToutLeReste = {{}, SectionDescriptions, "EXE", 1, false, Contenu<LireVersionFichier>, EnteteMz};

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
