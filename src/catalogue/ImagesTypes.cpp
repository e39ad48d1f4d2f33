#include "catalogue/ImagesTypes.h"

#include <algorithm>
#include <iterator>

#include "platform/TypesSysteme.h"

namespace {

constexpr std::string_view Base = "base", Bibliotheque = "bibliotheque", Classeur = "classeur", Cle = "cle",
                           Configuration = "configuration", Document = "document", Film = "film", Image = "image",
                           ImageDeDisque = "image-disque", ListeLecture = "liste-lecture", Livre = "livre",
                           Musique = "musique", PageWeb = "page-web", Pdf = "pdf", Police = "police",
                           Presentation = "presentation", Programme = "programme", Raccourci = "raccourci",
                           Source = "source", Texte = "texte";

struct Regle {
    std::string_view texte, image;
};

// What old discs are full of and the MIME database does not know, or knows as something else.
constexpr Regle ParExtension[] = {
    {"dll", Bibliotheque},   {"ocx", Bibliotheque},  {"sys", Bibliotheque},  {"vxd", Bibliotheque},
    {"drv", Bibliotheque},   {"cpl", Bibliotheque},  {"lib", Bibliotheque},  {"com", Programme},
    {"scr", Programme},      {"bat", Source},        {"cmd", Source},        {"asm", Source},
    {"bas", Source},         {"frm", Source},        {"vbp", Source},        {"dpr", Source},
    {"dsp", Source},         {"rc", Source},         {"cda", Musique},       {"diz", Texte},
    {"bbs", Texte},          {"ini", Configuration}, {"inf", Configuration}, {"cfg", Configuration},
    {"conf", Configuration}, {"lnk", Raccourci},     {"pif", Raccourci},     {"nrg", ImageDeDisque},
    {"mdf", ImageDeDisque},  {"mds", ImageDeDisque}, {"ccd", ImageDeDisque}, {"vlr", Base},
    {"lbm", Image},          {"otf", Police},        {"mod", Musique},       {"ts", Film},
    {"vob", Film},           {"ifo", Film}};

// Parts of the names of MIME types; the first one found counts, so what is narrow stands ahead of what is wide.
constexpr Regle ParType[] = {
    {"pdf", Pdf},
    {"htmlhelp", Livre},
    {"winhlp", Livre},
    {"epub", Livre},
    {"ebook", Livre},
    {"fictionbook", Livre},
    {"compressed-fb2", Livre},
    {"comicbook", Livre},
    {"x-cb", Livre},
    {"aportisdoc", Livre},
    {"html", PageWeb},
    {"mimearchive", PageWeb},
    {"text-web", PageWeb},
    {"font", Police},
    {"sharedlib", Bibliotheque},
    {"shared-library", Bibliotheque},
    {"x-object", Bibliotheque},
    {"mpegurl", ListeLecture},
    {"scpls", ListeLecture},
    {"xspf", ListeLecture},
    {"ms-asx", ListeLecture},
    {"ms-wpl", ListeLecture},
    {"application/ram", ListeLecture},
    {"-cue", ListeLecture},
    {"cdrdao-toc", ListeLecture},
    {"x509", Cle},
    {"pkix", Cle},
    {"pkcs", Cle},
    {"pgp-", Cle},
    {"keystore", Cle},
    {"cd-image", ImageDeDisque},
    {"disk", ImageDeDisque},
    {"floppy", ImageDeDisque},
    {"squashfs", ImageDeDisque},
    {"ms-wim", ImageDeDisque},
    {"compressed-iso", ImageDeDisque},
    {"database", Base},
    {"ms-access", Base},
    {"sql", Base},
    {"kexi", Base},
    {"x-dbf", Base},
    {"x-desktop", Raccourci},
    {"mswinurl", Raccourci},
    {"systemd", Configuration},
    {"dbus-service", Configuration},
    {"regedit", Configuration},
    {"yaml", Configuration},
    {"toml", Configuration},
    {"text/csv", Classeur},
    {"tab-separated", Classeur},
    {"text/spreadsheet", Classeur},
    {"x-msi", Programme},
    {"android.package", ImageArchive},
    {"djvu", Document},
    {"ms-visio", Document},
    {"ms-publisher", Document},
    {"x-krita", Image},
    {"image/", Image},
    {"audio/", Musique},
    {"video/", Film},
    {"ms-asf", Film},
    {"+xml", Source},
    {"+json", Source},
    {"/xml", Source},
    {"designer", Source},
    {"gtk-builder", Source},
    {"x-glade", Source},
    {"text/plain", Texte},
    {"markdown", Texte},
    {"x-log", Texte},
    {"x-nfo", Texte},
    {"setext", Texte},
    {"subviewer", Texte},
    {"microdvd", Texte},
    {"mpsub", Texte},
    {"x-ssa", Texte},
    {"vtt", Texte},
    {"calendar", Texte},
    {"vcard", Texte},
    {"richtext", Texte},
    {"troff", Texte},
    {"text/", Source},
};

// Whole kinds, by the name that icon themes have for them.
constexpr Regle ParIcone[] = {
    {"package-x-generic", ImageArchive},
    {"x-office-document", Document},
    {"x-office-spreadsheet", Classeur},
    {"x-office-presentation", Presentation},
    {"text-x-script", Source},
    {"text-x-generic", Texte},
    {"application-x-executable", Programme},
    {"audio-x-generic", Musique},
    {"video-x-generic", Film},
    {"image-x-generic", Image},
};

std::string_view Premiere(const auto& regles, const auto& convient)
{
    const auto regle = std::find_if(std::begin(regles), std::end(regles), convient);
    return regle == std::end(regles) ? std::string_view() : regle->image;
}

}  // namespace

std::string_view ImageDuType(const std::string& extension)
{
    const auto egale = [](std::string_view texte) {
        return [texte](const Regle& regle) { return regle.texte == texte; };
    };
    if (const std::string_view image = Premiere(ParExtension, egale(extension)); !image.empty())
        return image;
    const std::string type = TypeMime(extension);
    if (type.empty())
        return {};
    const auto contenue = [&](const Regle& regle) { return type.find(regle.texte) != std::string::npos; };
    if (const std::string_view image = Premiere(ParType, contenue); !image.empty())
        return image;
    const std::string icone = NomIconeGenerique(extension);
    const std::string_view image = Premiere(ParIcone, egale(icone));
    return image.empty() ? ImageFichier : image;
}
