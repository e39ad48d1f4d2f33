#include <clocale>
#include <cstdlib>

#include <gtest/gtest.h>
#include <QApplication>
#include <QLocale>

#include "commun/Consultation.h"

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    setenv("TZ", "Europe/Paris", 1);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    Q_INIT_RESOURCE(velourne);
    QApplication application(argc, argv);
    setlocale(LC_NUMERIC, "C");
    ::testing::InitGoogleTest(&argc, argv);
    const int code = RUN_ALL_TESTS();
    AttendreConsultations(std::chrono::seconds(10));
    return code;
}
