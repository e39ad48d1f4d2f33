#include "commun/Travail.h"

#include <algorithm>
#include <utility>

Travail::Travail(std::function<void()> reveiller)
    : reveiller_(std::move(reveiller)), fil_([this](const std::stop_token& fin) { Travailler(fin); })
{
}

Travail::~Travail()
{
    {
        const std::lock_guard garde(verrou_);
        for (const auto& piece : pieces_)
            piece->arret.request_stop();
    }
    fil_.request_stop();
    fil_.join();
}

void Travail::Demander(Place place, Tache tache, Suite suite)
{
    Arreter(place);
    const std::lock_guard garde(verrou_);
    pieces_.push_back(std::make_shared<Piece>(Piece{place, std::move(tache), std::move(suite), {}, false}));
    change_.notify_all();
}

void Travail::Executer(Place place, Suite action)
{
    Arreter(place);
    {
        const std::lock_guard garde(verrou_);
        const bool seule = pieces_.empty();
        pieces_.push_back(std::make_shared<Piece>(Piece{place, {}, std::move(action), {}, false}));
        if (!seule)
            return;
        pieces_.front()->faite = true;
    }
    Livrer();
}

void Travail::Arreter(Place place)
{
    const std::lock_guard garde(verrou_);
    for (const auto& piece : pieces_)
        if (piece->place == place)
            piece->arret.request_stop();
    // What has not begun goes at once.
    if (!pieces_.empty())
        pieces_.erase(
            std::remove_if(pieces_.begin() + 1, pieces_.end(), [](const auto& piece) { return Abandonnee(*piece); }),
            pieces_.end());
}

bool Travail::EnCours(Place place) const
{
    const std::lock_guard garde(verrou_);
    return std::any_of(pieces_.begin(), pieces_.end(),
                       [place](const auto& piece) { return piece->place == place && !Abandonnee(*piece); });
}

bool Travail::EnCours() const
{
    const std::lock_guard garde(verrou_);
    return !pieces_.empty();
}

void Travail::Livrer()
{
    std::unique_lock garde(verrou_);
    while (!enLivraison_ && !pieces_.empty() && pieces_.front()->faite) {
        const std::shared_ptr<Piece> piece = pieces_.front();
        enLivraison_ = true;
        garde.unlock();
        if (piece->suite && !Abandonnee(*piece))
            piece->suite();
        garde.lock();
        enLivraison_ = false;
        pieces_.pop_front();
        // Actions need no worker.
        if (!pieces_.empty() && !pieces_.front()->tache)
            pieces_.front()->faite = true;
    }
    change_.notify_all();
}

void Travail::Attendre()
{
    for (;;) {
        {
            std::unique_lock garde(verrou_);
            change_.wait(garde, [this] { return pieces_.empty() || pieces_.front()->faite; });
            if (pieces_.empty() || enLivraison_)
                return;
        }
        Livrer();
    }
}

void Travail::Travailler(const std::stop_token& fin)
{
    std::unique_lock garde(verrou_);
    for (;;) {
        const auto aFaire = [this] { return !pieces_.empty() && !pieces_.front()->faite && pieces_.front()->tache; };
        if (!change_.wait(garde, fin, aFaire) || fin.stop_requested())
            return;
        const std::shared_ptr<Piece> piece = pieces_.front();
        garde.unlock();
        if (!Abandonnee(*piece))
            piece->tache(piece->arret.get_token());
        garde.lock();
        piece->faite = true;
        change_.notify_all();
        garde.unlock();
        if (reveiller_)
            reveiller_();
        garde.lock();
    }
}
