#include "extractors/Aiguillage.h"
#include "outils/Environnement.h"
#include "store/Reglages.h"

class AiguillageTest : public Environnement {};

TEST_F(AiguillageTest, BrancheParExtension)
{
    struct Cas {
        const char *extension, *cle;
        bool vouluAuDepart;
    };
    for (const Cas& cas :
         {Cas{"html", "HTM", true}, Cas{"zip", "Compression 0", false}, Cas{"arj", "Compression 1", true},
          Cas{"lzh", "Compression 2", false}, Cas{"rar", "Compression 3", false}, Cas{"jpeg", "JPG", true},
          Cas{"iff", "LBM", true}, Cas{"sys", "SYS", true}, Cas{"", "EXE", true}, Cas{"ZIP", "EXE", true},
          Cas{"txt", "EXE", true}}) {
        const Branche& branche = ChoisirBranche(cas.extension);
        EXPECT_EQ(branche.cle, cas.cle) << cas.extension;
        EXPECT_EQ(branche.Voulue(), cas.vouluAuDepart) << cas.extension;
    }
    SaveSetting(SectionSettings, "Compression 3", "1");
    EXPECT_TRUE(ChoisirBranche("rar").Voulue());
    SaveSetting(SectionSettings, "Compression 3", "3");
    EXPECT_FALSE(ChoisirBranche("rar").Voulue());
}
