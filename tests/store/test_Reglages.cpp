#include "outils/Enfant.h"
#include "outils/Environnement.h"
#include "platform/Chemins.h"
#include "platform/OperationsFichiers.h"
#include "store/Reglages.h"

namespace {

class Reglages : public Environnement {
protected:
    static std::string Fichier() { return DossierConfiguration() + "/reglages"; }
};

TEST_F(Reglages, TextsComeBackWholeAndPrivate)
{
    const std::string textes[] = {"", " ", "été", "a\tb\nc\\d\\n\r", std::string("\0x\0", 3), "fin\\", "\xFF"};
    for (const std::string& texte : textes) {
        EXPECT_TRUE(SaveSetting(texte, "Opt 0", "section"));
        EXPECT_TRUE(SaveSetting("Types", texte, texte));
    }
    OublierReglages();
    for (const std::string& texte : textes) {
        EXPECT_EQ(GetSetting(texte, "Opt 0", "?"), "section");
        EXPECT_EQ(GetSetting("Types", texte, "?"), texte);
    }
    EXPECT_EQ(GetSetting("types", "", "?"), "?");
    EXPECT_EQ(std::filesystem::status(Fichier()).permissions(), std::filesystem::perms(0600));
}

TEST_F(Reglages, Numbers)
{
    const std::pair<const char*, double> cas[] = {{"3", 3},  {" 12", 12}, {"-1", -1}, {"5000.5 twips", 5000.5},
                                                  {"", 0},   {"abc", 0},  {"nan", 0}, {"-inf", 0},
                                                  {"+4", 4}, {"1,5", 1}};
    for (const auto& [texte, nombre] : cas) {
        SaveSetting("Settings", "View", texte);
        EXPECT_EQ(GetSettingNombre("Settings", "View", 9), nombre) << texte;
    }
    EXPECT_EQ(GetSettingNombre("Settings", "Absent", 2.5), 2.5);
    for (const auto& [nombre, texte] : {std::pair{100000.0, "100000"}, {-0.5, "-0.5"}, {16777215.0, "16777215"}}) {
        EXPECT_TRUE(SaveSettingNombre("Types", "Musique", nombre));
        EXPECT_EQ(GetSetting("Types", "Musique", ""), texte);
    }
}

TEST_F(Reglages, TwoProcessesKeepEachOthersKeys)
{
    EXPECT_TRUE(SaveSetting("Settings", "Commun", "1"));
    DansUnEnfant([] {
        for (int i = 0; i < 50; ++i)
            SaveSetting("Settings", "Enfant " + std::to_string(i), "e");
        return true;
    });
    EXPECT_EQ(GetSetting("Settings", "Enfant 49", "pas encore relu"), "pas encore relu");
    EXPECT_TRUE(SaveSetting("Settings", "Parent", "p"));
    OublierReglages();
    for (const char* cle : {"Commun", "Parent", "Enfant 0", "Enfant 49"})
        EXPECT_NE(GetSetting("Settings", cle, "?"), "?") << cle;
}

TEST_F(Reglages, AnUnwritableFileKeepsTheValueForThisProcess)
{
    EXPECT_TRUE(SaveSetting("Settings", "View", "3"));
    EXPECT_TRUE(DansUnEnfant([] {
        LimiterDisque(0);
        const bool ecrit = SaveSetting("Settings", "View", "2") || SaveSetting("Settings", "LExt", "4");
        return !ecrit && GetSetting("Settings", "View", "") + GetSetting("Settings", "LExt", "") == "24";
    }));
    OublierReglages();
    EXPECT_EQ(GetSetting("Settings", "View", ""), "3");
}

TEST_F(Reglages, DamagedLinesCostNoMoreThanThemselves)
{
    Ecrire(Fichier(), "Settings\tView\t3\nn'importe quoi\n\nun\tdeux\n\\\t\\\t\\\nSettings\tLExt\t2");
    EXPECT_EQ(GetSetting("Settings", "View", ""), "3");
    EXPECT_EQ(GetSetting("Settings", "LExt", ""), "2");
}

}  // namespace
