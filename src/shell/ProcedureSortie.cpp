#include "shell/ProcedureSortie.h"

#include <QEventLoop>
#include <QThread>

#include "platform/OperationsFichiers.h"
#include "shell/FrmExit.h"
#include "store/CycleBase.h"

namespace {

// On a thread of its own, so that the waiting window keeps painting whatever the size of the base.
void CompacterEnPatientant()
{
    QEventLoop boucle;
    QThread* compaction = QThread::create(&CompacterBase);
    QObject::connect(compaction, &QThread::finished, &boucle, &QEventLoop::quit);
    compaction->start();
    boucle.exec(QEventLoop::ExcludeUserInputEvents);
    compaction->wait();
    delete compaction;
}

}  // namespace

bool ProcedureSortie(QWidget* devant, Dialogues& dialogues)
{
    if (!dialogues.Demander("Voulez-vous vraiment quitter Velourne ?"))
        return false;

    FrmExit attente;
    attente.Montrer("Velourne est en cours de fermeture ... ", devant);
    CompacterEnPatientant();
    SupprimerFichier(CheminIconeTemporaire());
    return true;
}
