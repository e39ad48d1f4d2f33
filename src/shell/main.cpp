#include "fenetres/BoitesDialogue.h"
#include "platform/Bureau.h"
#include "shell/Application.h"
#include "shell/Fenetres.h"

namespace {

int Executer(int argc, char** argv)
{
    Application application(argc, argv);
    BoitesDialogue dialogues;
    if (!PremiereInstance()) {
        dialogues.Informer(
            "  Velourne est en cours d'utilsation sur votre machine\n\n"
            "Pour pouvoir l'utiliser de nouveau, veuillez fermer la version ouverte !");
        return 0;
    }

    Fenetres fenetres(dialogues);
    return Application::Mener(fenetres);
}

}  // namespace

int main(int argc, char** argv)
{
    Application::Finir(Executer(argc, argv));
}
