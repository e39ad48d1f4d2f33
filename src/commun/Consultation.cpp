#include "commun/Consultation.h"

#include <thread>
#include <utility>

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
    std::thread([etat = etat_, question = std::move(question)] {
        question(etat->arret.get_token());
        const std::lock_guard garde(etat->verrou);
        etat->repondue = true;
        etat->change.notify_all();
        if (etat->reveiller)
            etat->reveiller();
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
