#include <random>

#include <gtest/gtest.h>

#include "LecteurFactice.h"
#include "audiocd/CCd.h"
#include "audiocd/IdentiteDisque.h"
#include "audiocd/cASPI.h"
#include "audiocd/cMCI.h"
#include "audiocd/cSPTI.h"
#include "outils/Octets.h"

namespace {

constexpr const char* TroisPistes = "150 20000 40000 60000";
constexpr const char* AutreDisque = "182 21000 41000 61000";

std::string TocDePistes(int pistes)
{
    std::string toc;
    for (int piste = 0; piste <= pistes; ++piste)
        toc += (piste > 0 ? " " : "") + std::to_string(150 + piste * 3000);
    return toc;
}

ReponseToc Changer(ReponseToc reponse, size_t place, uint8_t octet)
{
    reponse[place] = octet;
    return reponse;
}

// The disc identity as CDDB's own documents define it, from minutes, seconds and frames.
std::string IdentitePubliee(const std::vector<int>& trames)
{
    const auto secondes = [](int n) { return n / (60 * 75) * 60 + n / 75 % 60; };
    unsigned somme = 0;
    for (size_t i = 0; i + 1 < trames.size(); ++i)
        for (const char chiffre : std::to_string(secondes(trames[i])))
            somme += static_cast<unsigned>(chiffre - '0');
    const auto duree = static_cast<unsigned>(secondes(trames.back()) - secondes(trames[0]));
    char texte[9];
    snprintf(texte, sizeof texte, "%08x", (somme % 0xff) << 24 | duree << 8 | static_cast<unsigned>(trames.size() - 1));
    return texte;
}

}  // namespace

TEST(ReponsesToc, TexteToc)
{
    const auto toc = [](std::string_view texte, int premiere = 1, uint8_t controle = 0x10) {
        return DisqueFactice(texte, premiere, controle).toc;
    };
    ReponseToc mixte = toc(TroisPistes, 1, 0x00);
    mixte[DisqueFactice::Descripteur(2) + 1] = 0x14;  // one good descriptor is enough

    const struct {
        const char* nom;
        ReponseToc reponse;
        std::optional<std::string> texte;
    } liste[] = {
        {"une piste", toc("150 20000"), "150 20000"},
        {"trois pistes", toc(TroisPistes), TroisPistes},
        {"99 pistes", toc(TocDePistes(99)), TocDePistes(99)},
        {"100 pistes", toc(TocDePistes(100)), ""},
        {"dernières pistes", toc(TroisPistes, 7), TroisPistes},
        {"données", toc(TroisPistes, 1, 0x14), TroisPistes},
        {"mixte", mixte, TroisPistes},
        {"sans ADR 1", toc(TroisPistes, 1, 0x24), ""},
        {"vide", ReponseToc{}, ""},
        {"à rebours", Changer(toc(TroisPistes), 2, 4), std::nullopt},
        {"256 pistes", Changer(Changer(toc(TroisPistes), 2, 0), 3, 255), ""},
    };
    for (const auto& cas : liste)
        EXPECT_EQ(BuildTocText(cas.reponse), cas.texte) << cas.nom;
}

TEST(ReponsesToc, TexteCdText)
{
    const std::string nul(1, '\0');
    const struct {
        const char* nom;
        std::vector<PaquetFactice> paquets;
        std::string texte;
    } liste[] = {
        {"aucun", {}, ""},
        {"autres sortes", {{0x86, 0, "REF"}, {0x8f, 0, "x"}, {0x90, 0, "x"}}, ""},
        {"à cheval",
         {{0x80, 0, "Un très lon"}, {0x80, 0, "g titre" + nul + "Ab" + nul}, {0x80, 2, "Deux"}},
         "|Un trÃ¨s long titre|||"
         "|Ab|Deux|"},
        {"court titre 1 derrière l'album",
         {{0x80, 0, "A" + nul + "B" + nul + "C" + nul}, {0x80, 3, "D"}},
         "|A||||B|C|D|"},
        {"interprètes", {{0x81, 0, "Duo" + nul + "Solo" + nul}, {0x81, 2, "Autre"}, {0x81, 0, "Encore"}}, "Duo|||||||"},
        {"message", {{0x85, 0, "Bon" + nul + "jour"}}, "||||Bonjour|"},
        {"auteur devant le titre", {{0x80, 1, "Un"}, {0x82, 1, "Bach"}, {0x80, 2, "Deux"}}, "|||||Un|BachDeux|"},
        {"trou dans la suite", {{0x80, 0, "A", 0}, {0x80, 1, "B", 2}}, "|A||||"},
        {"dernier titre perdu", {{0x80, 1, "Un" + nul + "Deux"}}, "|||||Un|"},
        {"au-delà de 99",
         {{0x80, 99, "X" + nul + "Y"}, {0x80, 200, "Z"}, {0x81, 0, "P"}},
         "P|||||" + Fois(98, "|") + "X|"},
        {"é en ANSI", {{0x80, 0, "\xC9t\xE9"}}, "|Été||||"},
    };
    for (const auto& cas : liste)
        EXPECT_EQ(BuildCdText(ReponsePaquets(cas.paquets)), cas.texte) << cas.nom;
}

TEST(IdentiteDisque, CasParticuliers)
{
    const struct {
        const char *toc, *identite;
        int64_t duree;
        const char *durees, *requete;
    } liste[] = {
        {"150 20000 40000 60000", "1b031e03", 798, "264 266 266", "1b031e03+3+150+20000+40000+800"},
        {"  150 20000 ", "02010801", 264, "264", "02010801+1+150+266"},
        {"150", "", 0, "", ""},
        {"", "", 0, "", ""},
        {"abc 7500", "00006401", 100, "100", "00006401+1+0+100"},
        {"0 75 75000x&y=", "0103e802", 1000, "1 999", "0103e802+2+0+75+1000"},
        {"7500 0", "01ff9c01", -100, "-100", "01ff9c01+1+7500+0"},
        {"0 3000000", "009c4001", 40000, "40000", "009c4001+1+0+40000"},
        {"0 5250000", "00117001", 70000, "70000", "00117001+1+0+70000"},
    };
    for (const auto& cas : liste) {
        EXPECT_EQ(CalMediaID(cas.toc), cas.identite) << cas.toc;
        EXPECT_EQ(CalAlbumlength(cas.toc), cas.duree) << cas.toc;
        EXPECT_EQ(CalTracklength(cas.toc), cas.durees) << cas.toc;
        EXPECT_EQ(ArgumentsRequete(cas.toc), cas.requete) << cas.toc;
    }
}

TEST(IdentiteDisque, CommeLaDocumentation)
{
    std::mt19937 hasard(13);
    for (int disque = 0; disque < 500; ++disque) {
        std::vector<int> trames = {150 + static_cast<int>(hasard() % 3000)};
        for (auto pistes = 1 + hasard() % 99; pistes > 0; --pistes)
            trames.push_back(trames.back() + 300 + static_cast<int>(hasard() % 3000));
        std::string toc;
        for (const int trame : trames)
            toc += std::to_string(trame) + ' ';
        EXPECT_EQ(CalMediaID(toc), IdentitePubliee(trames)) << toc;
        MachineFactice machine{DisqueFactice(toc)};
        CCd cd(machine);
        cd.Init("D:");
        EXPECT_EQ(cd.DiscID(), CalMediaID(toc)) << toc;
    }
}

TEST(LecteursToc, CommandesEnvoyees)
{
    MachineFactice machine{DisqueFactice(TroisPistes)};
    machine[0].disque.cdTexte = ReponsePaquets({{0x80, 0, "Album"}});
    cSPTI lecteur(machine);
    ASSERT_TRUE(lecteur.InitMediaToc("D:"));
    EXPECT_EQ(lecteur.GetTOC(), TroisPistes);
    EXPECT_EQ(lecteur.GetTEXT(), "|Album||||");
    EXPECT_EQ(machine[0].journal,
              (std::vector<std::string>{"SG_IO 43 02 00 00 00 00 00 03 24 00", "SG_IO 43 02 05 00 00 00 00 12 04 00"}));
}

TEST(LecteursToc, EchecsDeChaqueRoute)
{
    MachineFactice machine{DisqueFactice(TroisPistes)};
    const auto essayer = [&](LecteurToc&& lecteur) {
        return (lecteur.InitMediaToc("D:") ? "oui " : "non ") + lecteur.GetTOC() + '|' + lecteur.GetTEXT();
    };
    const std::string lu = std::string("oui ") + TroisPistes + '|';
    EXPECT_EQ(essayer(cSPTI(machine)), lu);  // without CD-Text
    EXPECT_EQ(essayer(cASPI(machine)), lu);
    EXPECT_EQ(essayer(cMCI(machine)), lu);

    machine[0].commandes = false;
    EXPECT_EQ(essayer(cSPTI(machine)), "non |");
    EXPECT_EQ(essayer(cASPI(machine)), "non |");
    EXPECT_EQ(essayer(cMCI(machine)), lu);

    machine[0].commandes = true;
    machine[0].systeme = false;  // no reference to compare with
    EXPECT_EQ(essayer(cSPTI(machine)), lu);
    EXPECT_EQ(essayer(cASPI(machine)), std::string("non ") + TroisPistes + '|');
    EXPECT_EQ(essayer(cMCI(machine)), "non |");

    machine[0].present = false;
    EXPECT_EQ(essayer(cSPTI(machine)), "non |");
    machine[0].present = true;
    machine[0].disque.toc[2] = 9;  // tracks that go backwards
    EXPECT_EQ(essayer(cSPTI(machine)), "non |");

    MachineFactice sans;
    EXPECT_EQ(essayer(cSPTI(sans)), "non |");
    CCd cd(sans);
    cd.Init("D:");
    EXPECT_EQ(cd.QueryString(), "Le Lecteur n'est pas disponible");
}

TEST(LecteursToc, DeuxLecteurs)
{
    MachineFactice machine;
    const auto ajouter = [&](char lettre, int adaptateur, int cible, int type, const char* toc) {
        AppareilFactice& appareil = machine.Ajouter();
        appareil.lettre = lettre;
        appareil.adaptateur = adaptateur;
        appareil.cible = cible;
        appareil.type = type;
        appareil.disque = DisqueFactice(toc);
    };
    ajouter('c', 0, 0, 0, TroisPistes);  // a disk: never asked
    ajouter('e', 0, 3, MachineCD::TypeCdRom, AutreDisque);
    ajouter('d', 2, 7, MachineCD::TypeCdRom, TroisPistes);
    machine[2].disque.cdTexte = ReponsePaquets({{0x80, 0, "Album"}});
    // Lead-outs do not count.
    machine[2].disque.toc[DisqueFactice::Descripteur(3) + 7] += 1;

    cASPI lecteur(machine);
    ASSERT_TRUE(lecteur.InitMediaToc("D:"));
    EXPECT_EQ(lecteur.GetTOC(), "150 20000 40000 60001");
    EXPECT_EQ(lecteur.GetTEXT(), "|Album||||");
    EXPECT_TRUE(machine[0].journal.empty());

    machine[2].unite = 2;  // beyond what is walked
    cASPI sans(machine);
    EXPECT_FALSE(sans.InitMediaToc("D:"));
    EXPECT_EQ(sans.GetTOC(), AutreDisque);
}

TEST(LecteursToc, RequeteDeCCd)
{
    MachineFactice machine{DisqueFactice(TroisPistes)};
    CCd cd(machine);
    EXPECT_EQ(cd.DiscID(), "");
    cd.Init("D:");
    EXPECT_EQ(cd.QueryString(), "cddb query 1b031e03 3 150 20000 40000 800");
}
