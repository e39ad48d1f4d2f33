#include "extractors/Aiguillage.h"

#include "commun/Texte.h"
#include "extractors/DecrireHTML.h"
#include "extractors/DecrireImage.h"
#include "extractors/DecrireMP3.h"
#include "extractors/DecrireOgg.h"
#include "extractors/DecrirePDF.h"
#include "extractors/DecrireProjet.h"
#include "extractors/DecrireTexte.h"
#include "extractors/LireVersionFichier.h"
#include "extractors/Raccourci.h"
#include "store/Reglages.h"

namespace {

// An extractor that needs the content alone.
template <bool (*Decrire)(const Fichier&, std::string&)>
bool Contenu(const FichierADecrire& source, std::string& resultat)
{
    return Decrire(source.fichier, resultat);
}

bool Pcx(const FichierADecrire& source, std::string& resultat)
{
    return DecrirePCX(source.fichier, source.etat.pcx, resultat);
}

bool Tga(const FichierADecrire& source, std::string& resultat)
{
    return DecrireTGA(source.fichier, source.etat.tga, resultat);
}

bool Lbm(const FichierADecrire& source, std::string& resultat)
{
    return DecrireLBM(source.fichier, source.extension, source.etat.lbm, resultat);
}

// The smallest sizes: 0 where an empty file is described too, else the shortest file that is.
constexpr uint64_t TitreVide = 15;        // "<title></title>"
constexpr uint64_t ProjetCourt = 8;       // "Title=", a quote and one character
constexpr uint64_t EnteteGif = 11;        // the shortest of the four kinds of pictures
constexpr uint64_t MarqueForm = 4;        // "FORM"
constexpr uint64_t OggCourt = 8 + 5 + 8;  // beginning and end of the comments with "DATE=" between them
constexpr uint64_t EnteteMz = 64;         // the DOS header of an executable

// One row per branch, in the order in which they are tested. To add a kind of file, name its function here.
constexpr Branche Branches[] = {
    {{"htm", "html"}, "HTM", Contenu<DecrireHTML>, TitreVide},
    {{"diz"}, "DIZ", Contenu<DecrireTexte>, 1},
    {{"nfo"}, "NFO", Contenu<DecrireTexte>, 1},
    {{"bbs"}, "BBS", Contenu<DecrireTexte>, 1},
    {{"lnk"}, "LNK", DecrireRaccourci, 0},
    {{"mp3"}, "MP3", Contenu<DecrireMP3>, 0},
    {{"vbp"}, "VBP", Contenu<DecrireProjet>, ProjetCourt},
    {{"jpg", "jpeg"}, "JPG", Contenu<DecrireImage>, EnteteGif},
    {{"bmp"}, "BMP", Contenu<DecrireImage>, EnteteGif},
    {{"png"}, "PNG", Contenu<DecrireImage>, EnteteGif},
    {{"gif"}, "GIF", Contenu<DecrireImage>, EnteteGif},
    {{"pcx"}, "PCX", Pcx, 0},
    {{"tga"}, "TGA", Tga, 0},
    {{"iff", "lbm"}, "LBM", Lbm, MarqueForm},
    {{"pdf"}, "PDF", Contenu<DecrirePDF>, 0},
    {{"ogg"}, "OGG", Contenu<DecrireOgg>, OggCourt},
    {{"fon"}, "FON", Contenu<LireVersionFichier>, EnteteMz},
    {{"sys"}, "SYS", Contenu<LireVersionFichier>, EnteteMz},
};

constexpr Branche ToutLeReste = {{}, "EXE", Contenu<LireVersionFichier>, EnteteMz};

}  // namespace

bool Branche::Voulue() const
{
    return GetSettingNombre(SectionDescriptions, cle, 1) == 1;
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
        return Minuscules(nom) == "file_id.diz";  // kept, particularité 36
    if (branche.cle == ToutLeReste.cle)
        return !chemin.ends_with(".cda");  // in small letters only (kept, particularité 12)
    return true;
}

bool ExtraireDescription(const FichierADecrire& source, std::string& resultat)
{
    const Branche& branche = ChoisirBranche(source.extension);
    return source.fichier.Taille() >= branche.tailleMinimale && branche.extraire(source, resultat);
}
