#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>

// Questions to the machine that may never be answered (a drive on a dead network mount): each is asked on a thread of
// its own, beside the store's work, and only the answer to the newest one counts. A thread that hangs is left to
// itself, so what it is given must live as long as it does: hand copies over.
//
// All members are for the owner's thread; the question runs on its own one, and so is `reveiller` called there.
class Consultation {
public:
    // `reveiller`: an answer is there; the owner must then call Livrer on its own thread.
    explicit Consultation(std::function<void()> reveiller);
    ~Consultation();
    Consultation(const Consultation&) = delete;
    Consultation& operator=(const Consultation&) = delete;

    // Asks; `suite` runs on the owner's thread when the answer has come, unless another question was asked meanwhile.
    void Demander(std::function<void(std::stop_token)> question, std::function<void()> suite);
    void Arreter();
    bool EnCours() const;
    void Livrer();
    // Waits for the answer and delivers it.
    void Attendre();

private:
    struct Etat {
        std::mutex verrou;
        std::condition_variable change;
        bool repondue = false;
        std::stop_source arret;
        std::function<void()> reveiller;  // none any more when the owner has gone or asked something else
    };

    const std::function<void()> reveiller_;
    std::shared_ptr<Etat> etat_;  // of the newest question; none when all is answered
    std::function<void()> suite_;
};

// Waits until no question is open any more, those left to themselves included, for so long at most. False when one still
// hangs: the process must then end without destroying what it may be using (std::_Exit).
bool AttendreConsultations(std::chrono::milliseconds delai);
