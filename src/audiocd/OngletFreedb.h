#pragma once

#include <array>
#include <functional>
#include <string>
#include <thread>

#include <QWidget>

#include "audiocd/ChoixFenetres.h"
#include "audiocd/uFREEDB.h"
#include "commun/Dialogues.h"

class Etiquette;
class QPushButton;

// A switch of the tab, read and written by its owner.
struct InterrupteurFreedb {
    std::string texte;
    std::function<bool()> lire;
    std::function<void(bool)> ecrire;
};

// The preferences' tab on the CDDB: the server, which can be chosen from a list that a server gives, the local
// directory, and the proxy. Each change is on disk at once. A server is asked on a thread of its own.
class OngletFreedb : public QWidget {
public:
    // The switches: the local directory, then the proxy.
    OngletFreedb(const std::array<InterrupteurFreedb, 2>& interrupteurs, MachineCD& machine, Dialogues& dialogues,
                 QWidget* parent = nullptr);
    ~OngletFreedb() override;

private:
    QWidget* CreerServeur();
    QWidget* CreerBaseLocale(const InterrupteurFreedb& interrupteur);
    QWidget* CreerProxy(const InterrupteurFreedb& interrupteur);
    void Montrer();
    void ChoisirDossier();
    void DemanderServeurs();
    void RecevoirServeurs(int nombre, bool arrete);

    Dialogues& dialogues_;
    ChoixFenetres choix_;
    uFREEDB freedb_;  // the worker's while it runs
    QPushButton* boutonServeur_;
    Etiquette* serveur_;
    Etiquette* dossier_;
    bool enCours_ = false;
    std::jthread fil_;
};
