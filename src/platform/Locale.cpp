#include "platform/Locale.h"

#include <cmath>
#include <ctime>

#include <unordered_map>
#include <vector>

#include <fmt/format.h>

#include <QDate>
#include <QLocale>
#include <QTime>

namespace {
constexpr int64_t ParSeconde = 10'000'000;
constexpr int64_t De1601a1970 = 11'644'473'600;

const std::string& SeparateurMilliers()
{
    static const std::string separateur = QLocale().groupSeparator().toStdString();
    return separateur;
}

// Digits of a value that is not negative, without a point: 1234.5 with 2 decimals gives "123450". Fifteen significant
// digits count, so that 1.005 is rounded as it is written and not as it is stored.
std::string Chiffres(double valeur, int decimales)
{
    if (valeur >= 1e15)
        return fmt::format("{:.0f}", valeur) + std::string(static_cast<size_t>(decimales), '0');
    double entier = valeur;
    for (int rang = 0; rang < decimales; ++rang)
        entier *= 10;
    const bool loinDuDemi = std::fabs(entier - std::floor(entier) - 0.5) > 1e-3;
    if (loinDuDemi && entier < 1e11)
        return fmt::format("{}", std::llround(entier));
    const std::string scientifique = fmt::format("{:.14e}", valeur);
    std::string chiffres = scientifique.substr(0, 1) + scientifique.substr(2, 14);
    const int gardes = std::stoi(scientifique.substr(17)) + 1 + decimales;
    if (gardes < 0)
        return "0";
    const auto nombre = static_cast<size_t>(gardes);
    if (nombre >= chiffres.size())
        return chiffres + std::string(nombre - chiffres.size(), '0');

    const bool retenue = chiffres[nombre] >= '5';
    chiffres = "0" + chiffres.substr(0, nombre);
    size_t rang = chiffres.size() - 1;
    while (retenue && chiffres[rang] == '9')
        chiffres[rang--] = '0';
    if (retenue)
        ++chiffres[rang];
    return chiffres;
}

// Takes the time zone ("t" outside quotes, and brackets around it) out of a time format.
QString SansFuseau(const QString& format)
{
    QString reste;
    bool cite = false;
    for (const QChar caractere : format) {
        if (caractere == u'\'')
            cite = !cite;
        if (cite ||
            (caractere != u't' && caractere != u'(' && caractere != u')' && caractere != u'[' && caractere != u']'))
            reste += caractere;
    }
    return reste.trimmed();
}
}  // namespace

const std::string& SeparateurDecimal()
{
    static const std::string separateur = QLocale().decimalPoint().toStdString();
    return separateur;
}

std::string FormatNombre(double valeur, int decimales, bool groupes)
{
    if (!std::isfinite(valeur))
        return {};
    const auto apres = static_cast<size_t>(decimales > 0 ? decimales : 0);
    std::string chiffres = Chiffres(std::fabs(valeur), static_cast<int>(apres));
    if (chiffres.size() <= apres)
        chiffres.insert(0, apres + 1 - chiffres.size(), '0');
    const size_t debut = std::min(chiffres.find_first_not_of('0'), chiffres.size() - apres - 1);
    chiffres.erase(0, debut);

    const size_t entiers = chiffres.size() - apres;
    std::string texte;
    if (std::signbit(valeur) && chiffres.find_first_not_of('0') != std::string::npos)
        texte = "-";
    for (size_t rang = 0; rang < entiers; ++rang) {
        if (groupes && rang > 0 && (entiers - rang) % 3 == 0)
            texte += SeparateurMilliers();
        texte += chiffres[rang];
    }
    if (apres > 0)
        texte += SeparateurDecimal() + chiffres.substr(entiers);
    return texte;
}

int64_t TempsDepuis1601(int64_t secondes, uint32_t nanosecondes)
{
    int64_t temps = 0;
    if (__builtin_add_overflow(secondes, De1601a1970, &temps) || __builtin_mul_overflow(temps, ParSeconde, &temps) ||
        __builtin_add_overflow(temps, int64_t{nanosecondes / 100}, &temps))
        return secondes < 0 ? INT64_MIN : INT64_MAX;
    return temps;
}

int64_t Maintenant()
{
    return TempsDepuis1601(time(nullptr), 0);
}

DateHeure EnDateLocale(int64_t temps)
{
    const time_t secondes = temps / ParSeconde - (temps % ParSeconde < 0 ? 1 : 0) - De1601a1970;
    tm local{};
    if (!localtime_r(&secondes, &local))
        return {};
    if (local.tm_year + 1900 > 9999)
        return {9999, 12, 31, 23, 59, 59};
    if (local.tm_year + 1900 < 1)
        return {1, 1, 1, 0, 0, 0};
    return {local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec};
}

namespace {
constexpr const char* FormatDateFrancaise = "dd/MM/yyyy";
}

std::string DateCourteEntiere(const DateHeure& date)
{
    return QDate(date.annee, date.mois, date.jour).toString(FormatDateFrancaise).toStdString();
}

bool LireDateCourte(const std::string& texte, DateHeure& date)
{
    const QDate lue = QDate::fromString(QString::fromStdString(texte), FormatDateFrancaise);
    if (!lue.isValid())
        return false;
    date = {lue.year(), lue.month(), lue.day()};
    return true;
}

DateHeure Aujourdhui()
{
    const QDate jour = QDate::currentDate();
    return {jour.year(), jour.month(), jour.day()};
}

const std::string& HeureLongue(int heure, int minute, int seconde)
{
    static const QString format = SansFuseau(QLocale().timeFormat(QLocale::LongFormat));
    static const std::string invalide;
    thread_local std::vector<std::string> connues(86'400);
    const QTime temps(heure, minute, seconde);
    if (!temps.isValid())
        return invalide;
    std::string& texte = connues[static_cast<size_t>((heure * 60 + minute) * 60 + seconde)];
    if (texte.empty())
        texte = QLocale().toString(temps, format).toStdString();
    return texte;
}
