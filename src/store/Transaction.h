#pragma once

#include "store/Base.h"

// One transaction of a base, which must outlive it; not nested. It rolls back by itself when it goes away unfinished.
// For the thread that uses the store.
class Transaction {
public:
    explicit Transaction(Base& base) : base_(base), ouverte_(base.CommencerTransaction()) {}
    ~Transaction() { Annuler(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    // False when the base is not open or is in a transaction already: this object then does nothing.
    bool Ouverte() const { return ouverte_; }

    // On disk when true. False, with nothing left of it, after a full disk among others.
    bool Valider()
    {
        const bool fait = ouverte_ && base_.Valider();
        ouverte_ = false;
        return fait;
    }

    void Annuler()
    {
        if (ouverte_)
            base_.Annuler();
        ouverte_ = false;
    }

private:
    Base& base_;
    bool ouverte_;
};
