#include <filesystem>
#include <map>
#include <vector>

#include <QFile>
#include <QPixmap>

#include "browser/ImagesCatalogue.h"
#include "catalogue/ImagesTypes.h"
#include "outils/Environnement.h"
#include "platform/TypesSysteme.h"

namespace {

// Icon themes of the test's own; none is set at first, as on a bare desktop.
class ImagesDesTypes : public Environnement {
protected:
    ImagesDesTypes()
    {
        QIcon::setThemeSearchPaths({QString::fromStdString(travail_.string())});
        QIcon::setFallbackSearchPaths({});
        QIcon::setThemeName("hicolor");
    }
    ~ImagesDesTypes() override
    {
        QIcon::setThemeSearchPaths(chemins_);
        QIcon::setFallbackSearchPaths(replis_);
        QIcon::setThemeName(theme_);
    }

    void FaireTheme(const char* theme, const std::map<std::string, QColor>& icones) const
    {
        Ecrire(travail_ / theme / "index.theme",
               "[Icon Theme]\nName=Essai\nInherits=hicolor\nDirectories=16\n[16]\nSize=16\n");
        std::filesystem::create_directories(travail_ / theme / "16");
        for (const auto& [nom, couleur] : icones) {
            QPixmap image(16, 16);
            image.fill(couleur);
            EXPECT_TRUE(image.save(QString::fromStdString((travail_ / theme / "16" / (nom + ".png")).string())));
        }
    }

    QIcon Icone(const std::string& extension) { return images_.DeItem(extensions_.Chercher(extension)); }

    IconesExtensions extensions_;
    ImagesCatalogue images_{extensions_};

private:
    QStringList chemins_ = QIcon::themeSearchPaths(), replis_ = QIcon::fallbackSearchPaths();
    QString theme_ = QIcon::themeName();
};

QImage Vue(const QIcon& icone, QIcon::Mode mode = QIcon::Normal, QIcon::State etat = QIcon::Off)
{
    return icone.pixmap(QSize(16, 16), 1.0, mode, etat).toImage().convertToFormat(QImage::Format_ARGB32);
}

QImage Propre(const std::string& nom)
{
    const QString chemin = QString(":/images/types/%1.svg").arg(QString::fromStdString(nom));
    EXPECT_TRUE(QFile::exists(chemin)) << nom;
    return Vue(QIcon(chemin));
}

QColor Couleur(const QIcon& icone)
{
    return Vue(icone).pixelColor(8, 8);
}

}  // namespace

TEST_F(ImagesDesTypes, SansThemeChaqueSorteALaSienne)
{
    // A theme's leftovers are no desktop's choice.
    FaireTheme("hicolor", {{"audio-mpeg", Qt::red}, {"package-x-generic", Qt::red}});
    const std::map<std::string, std::vector<const char*>> cas = {
        {"archive", {"zip", "rar", "arj", "lha", "lzh", "ace", "7z", "gz", "cab"}},
        {"base", {"mdb", "dbf", "sqlite3", "vlr"}},
        {"bibliotheque", {"dll", "so", "ocx", "o"}},
        {"classeur", {"xls", "xlsx", "ods", "csv"}},
        {"cle", {"pem", "crt", "p12", "gpg"}},
        {"configuration", {"ini", "inf", "reg", "yaml"}},
        {"document", {"doc", "docx", "odt", "rtf", "ps", "djvu"}},
        {"fichier", {"torrent"}},
        {"film", {"avi", "mpg", "mkv", "mp4"}},
        {"image", {"png", "jpg", "gif", "bmp", "pcx", "tga", "svg", "ico", "psd"}},
        {"image-disque", {"iso", "nrg", "dmg", "vmdk"}},
        {"liste-lecture", {"m3u", "pls", "cue", "xspf"}},
        {"livre", {"epub", "chm", "hlp", "cbz", "fb2"}},
        {"musique", {"mp3", "ogg", "wav", "mid", "cda"}},
        {"page-web", {"html", "htm", "xhtml", "mht"}},
        {"pdf", {"pdf"}},
        {"police", {"ttf", "otf", "pfb"}},
        {"presentation", {"ppt", "pptx", "odp"}},
        {"programme", {"exe", "com", "msi"}},
        {"raccourci", {"lnk", "url", "desktop"}},
        {"source", {"c", "cpp", "py", "js", "css", "sh", "xml", "json", "bat"}},
        {"texte", {"txt", "nfo", "diz", "md", "log", "srt"}},
    };
    for (const auto& [nom, sortes] : cas)
        for (const std::string extension : sortes) {
            EXPECT_EQ(ImageDuType(extension), nom) << extension;
            EXPECT_EQ(Vue(Icone(extension)), Propre(nom)) << extension;
        }
}

TEST_F(ImagesDesTypes, LeThemeDuBureauDAbord)
{
    FaireTheme("essai", {{"audio-mpeg", Qt::red}, {"audio-x-generic", Qt::green}, {"application", Qt::blue}});
    QIcon::setThemeName("essai");
    EXPECT_EQ(Couleur(Icone("mp3")), QColor(Qt::red));
    EXPECT_EQ(Couleur(Icone("wav")), QColor(Qt::green)) << "the icon of the whole kind";
    EXPECT_EQ(Vue(Icone("exe")), Propre("programme")) << "no shorter name";
    // What was made once stays.
    FaireTheme("essai", {{"audio-mpeg", Qt::blue}});
    EXPECT_EQ(Couleur(Icone("mp3")), QColor(Qt::red));
}

TEST_F(ImagesDesTypes, ExtensionsHostiles)
{
    for (const std::string& hostile :
         {std::string(60, 'a'), std::string("a/png"), std::string("../../etc/passwd"), std::string("x/makefile"),
          std::string("png\n"), std::string("p\0g", 3), std::string("*"), std::string("[1-9]"), std::string("..."),
          std::string("/x.png"), std::string("\xFF\xFE"), std::string()}) {
        EXPECT_EQ(extensions_.Chercher(hostile), ImageGenerique) << hostile;
        EXPECT_EQ(TypeMime(hostile) + NomTypeFichier(hostile), "") << hostile;
    }
    const int32_t png = extensions_.Chercher("png");
    EXPECT_GE(png, IconesExtensions::Premiere);
    for (size_t i = 0; i <= IconesExtensions::Maximum; ++i)
        extensions_.Chercher("z" + std::to_string(i));
    EXPECT_EQ(extensions_.Chercher("png"), png);
    EXPECT_EQ(extensions_.Extension(png), "png");
    EXPECT_EQ(extensions_.Chercher("jpg"), ImageGenerique) << "memory is bounded";
}

TEST_F(ImagesDesTypes, ArchivesDeLArbre)
{
    ArbreCatalogue arbre;
    const int32_t racine = arbre.Ajouter(ArbreCatalogue::Aucun, "Root", "racine", ImageRacine, ImageRacine);
    const int32_t archive = arbre.Ajouter(racine, "A 1 1", "a.zip");
    const int32_t dossier = arbre.Ajouter(archive, " 1-A00000001", "d", ImageRepertoire, ImageRepertoireOuvert);
    for (const auto etat : {QIcon::Off, QIcon::On})
        for (const auto mode : {QIcon::Normal, QIcon::Active, QIcon::Selected})
            EXPECT_EQ(Vue(images_.DuNoeud(arbre, archive), mode, etat), Propre("archive"));
    EXPECT_EQ(Vue(images_.DuNoeud(arbre, dossier)), Vue(QIcon(":/images/repertoire.svg")));
    EXPECT_EQ(Vue(images_.DuNoeud(arbre, dossier), QIcon::Selected), Vue(QIcon(":/images/repertoire-ouvert.svg")));

    FaireTheme("essai", {{"package-x-generic", Qt::green}});
    QIcon::setThemeName("essai");
    EXPECT_EQ(Couleur(ImagesCatalogue(extensions_).DuNoeud(arbre, archive)), QColor(Qt::green));
}
