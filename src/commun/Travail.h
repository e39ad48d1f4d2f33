#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <stop_token>
#include <thread>

// What a piece of work is for. A newer request for the same place stops the older one.
enum class Place {
    Arbre,         // loading of the catalogue tree
    Liste,         // reading of a node's entries
    Description,   // of one entry or result
    Tri,           // sorting of the browser's list
    Recherche,     // the search
    TriResultats,  // sorting of its results
    Course,        // reading of a drive
    Listing,       // writing of a listing
    Compaction,    // of the base, at the end
    Commande,      // a command that writes, switches or deletes a base
    Menu,          // what a menu shows
};

// Long work, one piece at a time, on a worker thread. A piece runs on the worker; then its sequel runs on the thread
// that owns this object, the window's, and only then does the next piece begin. So the pieces and their sequels never
// use the store at the same time.
//
// All members are for the owner's thread, but for what is called on the worker: the pieces themselves and `reveiller`.
class Travail {
public:
    using Tache = std::function<void(std::stop_token)>;  // runs on the worker; may end early when asked to stop
    using Suite = std::function<void()>;                 // runs on the owner's thread

    // `reveiller` is called on the worker's thread when a piece is done: the owner must then call Livrer on its own.
    explicit Travail(std::function<void()> reveiller);
    // Asks all to stop, drops what waits and ends when the running piece has.
    ~Travail();
    Travail(const Travail&) = delete;
    Travail& operator=(const Travail&) = delete;

    // Puts a piece of work behind those there are. The older ones for this place are stopped, and their sequels never
    // run.
    void Demander(Place place, Tache tache, Suite suite);

    // Runs a short action on the owner's thread: at once when nothing runs or waits, else as soon as the work ahead of
    // it is done. It takes the place like work does.
    void Executer(Place place, Suite action);

    // Stops the work of a place: it ends as soon as it can, and its sequel never runs.
    void Arreter(Place place);

    // Something of this place runs or waits that was not stopped; anything at all runs or waits.
    bool EnCours(Place place) const;
    bool EnCours() const;

    // Runs the sequel of the piece that is done, if there is one, and lets the next begin.
    void Livrer();

    // Waits until nothing runs or waits any more, delivering on the way.
    void Attendre();

private:
    struct Piece {
        Place place;
        Tache tache;  // none: an action
        Suite suite;
        std::stop_source arret;
        bool faite = false;  // by the worker, to be delivered
    };

    void Travailler(const std::stop_token& fin);
    static bool Abandonnee(const Piece& piece) { return piece.arret.stop_requested(); }

    const std::function<void()> reveiller_;
    mutable std::mutex verrou_;
    std::condition_variable_any change_;
    std::deque<std::shared_ptr<Piece>> pieces_;  // the first one runs, or is done and waits for its sequel
    bool enLivraison_ = false;                   // a sequel runs: it may let events run, and these deliver nothing
    std::jthread fil_;                           // last: it uses all of the above
};
