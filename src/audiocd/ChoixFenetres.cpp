#include "audiocd/ChoixFenetres.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>

#include <QThread>

#include "audiocd/frmFuzzyMatch.h"
#include "audiocd/frmServerSites.h"

namespace {

// A question on its way between a worker and the window thread.
struct Question {
    std::mutex verrou;
    std::condition_variable_any repondue;
    std::optional<int> reponse;
    QPointer<FenetreChoix> fenetre;  // the window thread's

    void Repondre(int choisi)
    {
        const std::lock_guard garde(verrou);
        if (!reponse)
            reponse = choisi;
        repondue.notify_all();
    }
    bool Repondue()
    {
        const std::lock_guard garde(verrou);
        return reponse.has_value();
    }
};

}  // namespace

ChoixFenetres::ChoixFenetres(QWidget* fenetre) : QObject(fenetre), fenetre_(fenetre) {}

int ChoixFenetres::ChoisirDisque(const std::vector<std::string>& titres, bool, long haut, long gauche,
                                 std::stop_token arret)
{
    return Demander(
        [titres, haut, gauche](QWidget* parent) {
            auto* fenetre = new frmFuzzyMatch(titres, parent);
            fenetre->Placer(haut, gauche);
            return fenetre;
        },
        arret);
}

int ChoixFenetres::ChoisirServeur(const std::vector<std::string>& rangees, std::stop_token arret)
{
    return Demander([rangees](QWidget* parent) { return new frmServerSites(rangees, parent); }, arret);
}

int ChoixFenetres::Demander(const Creation& creer, const std::stop_token& arret)
{
    if (QThread::currentThread() == thread()) {
        const std::unique_ptr<FenetreChoix> fenetre(creer(fenetre_));
        return fenetre->GetSelection();
    }

    const auto question = std::make_shared<Question>();
    QMetaObject::invokeMethod(
        this,
        [this, creer, question] {
            if (question->Repondue())
                return;
            FenetreChoix* fenetre = creer(fenetre_);
            question->fenetre = fenetre;
            fenetre->setAttribute(Qt::WA_DeleteOnClose);
            connect(fenetre, &QDialog::finished, fenetre,
                    [question, fenetre] { question->Repondre(fenetre->Choisi()); });
            connect(fenetre, &QObject::destroyed, this, [question] { question->Repondre(0); });
            fenetre->open();
        },
        Qt::QueuedConnection);

    std::unique_lock garde(question->verrou);
    if (question->repondue.wait(garde, arret, [&] { return question->reponse.has_value(); }))
        return *question->reponse;
    question->reponse = 0;
    garde.unlock();
    QMetaObject::invokeMethod(
        this,
        [question] {
            if (question->fenetre)
                question->fenetre->reject();
        },
        Qt::QueuedConnection);
    return 0;
}
