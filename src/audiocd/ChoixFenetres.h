#pragma once

#include <functional>

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "audiocd/ChoixCddb.h"

class FenetreChoix;

// Asks by windows. Made on the window thread, and asked there or on a worker: a worker waits until its window is closed
// or its stop is asked for, which closes the window.
class ChoixFenetres : public QObject, public ChoixCddb {
public:
    // The windows open over `fenetre`.
    explicit ChoixFenetres(QWidget* fenetre);

    int ChoisirDisque(const std::vector<std::string>& titres, bool soumission, long haut, long gauche,
                      std::stop_token arret) override;
    int ChoisirServeur(const std::vector<std::string>& rangees, std::stop_token arret) override;

private:
    using Creation = std::function<FenetreChoix*(QWidget* parent)>;
    int Demander(const Creation& creer, const std::stop_token& arret);

    QPointer<QWidget> fenetre_;
};
