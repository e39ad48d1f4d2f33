#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>

// A disc that turns while a run is going on. Keeps its place when it is at rest.
class Animation : public QWidget {
public:
    explicit Animation(QWidget* parent = nullptr);

    void Demarrer();
    void Arreter();

protected:
    void paintEvent(QPaintEvent* evenement) override;

private:
    QTimer minuterie_;
    int angle_ = 0;
};
