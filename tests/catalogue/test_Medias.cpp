#include "catalogue/ArretCourse.h"
#include "catalogue/Medias.h"
#include "outils/Brut.h"
#include "outils/LignesTest.h"

using TestMedias = EnvironnementBase;
using Lignes = std::vector<std::string>;

TEST_F(TestMedias, SeMontrentEtSEffacent)
{
    for (const char* label : {"un", "deux"})
        AjouterLignes(AjouterMediaTest({label, "", "", false}), {{"000000001", "0", "f", "a"}});
    EXPECT_TRUE(ModifierCatalogue(2, true, "#8#D:"));
    EXPECT_FALSE(ModifierCatalogue(99, true, ""));
    EXPECT_EQ(Brut(BaseCourante(), "select Tree from Catalogue where Flag"), Lignes{"#8#D:"});
    for (const char* sansEffet : {"", "2 or 1 = 1'", "2; delete from Catalogue"})
        SupprimerMedia(sansEffet);
    EXPECT_EQ(Brut(BaseCourante(), "select count(*) from Catalogue"), Lignes{"2"});

    const std::stop_token course = CommencerCourse();
    EXPECT_FALSE(course.stop_requested());
    SupprimerMedia(" 2");
    EXPECT_TRUE(course.stop_requested()) << "the run that goes on is stopped";
    EXPECT_FALSE(CommencerCourse().stop_requested());
    EXPECT_EQ(Brut(BaseCourante(), "select group_concat(NCatalogue) from Liste"), Lignes{"1"});
    EXPECT_EQ(Brut(BaseCourante(), "select group_concat(Num) from Catalogue"), Lignes{"1"});
}
