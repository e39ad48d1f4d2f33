#include "commun/Consultation.h"

#include <atomic>
#include <thread>
#include <utility>

namespace {

std::atomic<int> questionsOuvertes;

}  // namespace

Consultation::Consultation(std::function<void()> reveiller) : reveiller_(std::move(reveiller)) {}

Consultation::~Consultation()
{
    Arreter();
}

void Consultation::Demander(std::function<void(std::stop_token)> question, std::function<void()> suite)
{
    Arreter();
    etat_ = std::make_shared<Etat>();
    etat_->reveiller = reveiller_;
    suite_ = std::move(suite);
    ++questionsOuvertes;
    std::thread([etat = etat_, question = std::move(question)]() mutable {
        question(etat->arret.get_token());
        {
            const std::lock_guard garde(etat->verrou);
            etat->repondue = true;
            etat->change.notify_all();
            if (etat->reveiller)
                etat->reveiller();
        }
        question = {};
        etat.reset();
        --questionsOuvertes;
    }).detach();
}

void Consultation::Arreter()
{
    if (!etat_)
        return;
    etat_->arret.request_stop();
    {
        const std::lock_guard garde(etat_->verrou);
        etat_->reveiller = {};
    }
    etat_.reset();
    suite_ = {};
}

bool Consultation::EnCours() const
{
    return etat_ != nullptr;
}

void Consultation::Livrer()
{
    if (!etat_)
        return;
    {
        const std::lock_guard garde(etat_->verrou);
        if (!etat_->repondue)
            return;
    }
    etat_.reset();
    if (const std::function<void()> suite = std::exchange(suite_, {}))
        suite();
}

void Consultation::Attendre()
{
    while (etat_) {
        {
            const auto etat = etat_;
            std::unique_lock garde(etat->verrou);
            etat->change.wait(garde, [&] { return etat->repondue; });
        }
        Livrer();
    }
}

bool AttendreConsultations(std::chrono::milliseconds delai)
{
    using namespace std::chrono;
    const auto fin = steady_clock::now() + delai;
    while (questionsOuvertes > 0 && steady_clock::now() < fin)
        std::this_thread::sleep_for(2ms);
    return questionsOuvertes == 0;
}
