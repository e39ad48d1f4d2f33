#include "commun/Texte.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include <QChar>
#include <QList>
#include <QString>

namespace {
// Characters of the bytes 0x80 to 0x9F.
constexpr std::array<char16_t, 32> ansiHaut = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

// Characters of the bytes from 0x80 on in code page 850.
constexpr std::array<char16_t, 128> dosHaut = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE,
    0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9, 0x00FF, 0x00D6,
    0x00DC, 0x00F8, 0x00A3, 0x00D8, 0x00D7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA,
    0x00BA, 0x00BF, 0x00AE, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x00C1, 0x00C2, 0x00C0, 0x00A9, 0x2563, 0x2551, 0x2557, 0x255D, 0x00A2, 0x00A5, 0x2510, 0x2514,
    0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x00E3, 0x00C3, 0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256C, 0x00A4, 0x00F0, 0x00D0, 0x00CA, 0x00CB, 0x00C8, 0x0131, 0x00CD, 0x00CE, 0x00CF, 0x2518, 0x250C,
    0x2588, 0x2584, 0x00A6, 0x00CC, 0x2580, 0x00D3, 0x00DF, 0x00D4, 0x00D2, 0x00F5, 0x00D5, 0x00B5, 0x00FE,
    0x00DE, 0x00DA, 0x00DB, 0x00D9, 0x00FD, 0x00DD, 0x00AF, 0x00B4, 0x00AD, 0x00B1, 0x2017, 0x00BE, 0x00B6,
    0x00A7, 0x00F7, 0x00B8, 0x00B0, 0x00A8, 0x00B7, 0x00B9, 0x00B3, 0x00B2, 0x25A0, 0x00A0,
};

constexpr char32_t limiteTable = 0x800;  // all that two bytes of UTF-8 write

unsigned char Octet(std::string_view texte, size_t position)
{
    return static_cast<unsigned char>(texte[position]);
}

// Length of the valid UTF-8 sequence at `position`, 0 when there is none.
size_t LongueurValide(std::string_view texte, size_t position, char32_t& caractere)
{
    const unsigned char premier = Octet(texte, position);
    if (premier < 0x80) {
        caractere = premier;
        return 1;
    }
    const size_t longueur = premier >= 0xF0 ? 4 : premier >= 0xE0 ? 3 : 2;
    if (premier < 0xC2 || premier > 0xF4 || texte.size() - position < longueur)
        return 0;
    caractere = premier & (0xFFU >> (longueur + 1));
    for (size_t rang = 1; rang < longueur; ++rang) {
        const unsigned char suite = Octet(texte, position + rang);
        if ((suite & 0xC0) != 0x80)
            return 0;
        caractere = caractere << 6 | (suite & 0x3F);
    }
    const bool tropLong = (longueur == 3 && caractere < 0x800) || (longueur == 4 && caractere < 0x10000);
    const bool interdit = (caractere >= 0xD800 && caractere < 0xE000) || caractere > 0x10FFFF;
    return tropLong || interdit ? 0 : longueur;
}

// How a character is ordered: by letter first, then accents, then case.
struct Poids {
    uint32_t lettre = 0;  // 0: counts as an accent of the letter before it
    uint32_t accents = 0;
    uint32_t casse = 0;
    uint32_t lettreSuivante = 0;  // second letter of œ, æ and ß
};

// Signs come before digits, digits before letters.
constexpr uint32_t PoidsChiffres = 0x200000, PoidsLettres = 0x300000;

uint32_t PoidsLettre(char32_t caractere)
{
    if (QChar::isLetter(caractere))
        return PoidsLettres + QChar::toCaseFolded(caractere);
    if (const int valeur = QChar::digitValue(caractere); valeur >= 0)
        return PoidsChiffres + static_cast<uint32_t>(valeur);
    return caractere + 1;
}

bool EstAccent(char32_t caractere)
{
    return QChar::isMark(caractere);
}

uint32_t AjouterAccent(uint32_t accents, char32_t accent)
{
    return accents * 0x101 + accent;
}

// Takes the accents off a character until its base letter is left.
char32_t Denuder(char32_t caractere, uint32_t& accents)
{
    const bool hangul = caractere >= 0xAC00 && caractere <= 0xD7A3;
    if (hangul || QChar::decompositionTag(caractere) != QChar::Canonical)
        return caractere;
    const QList<uint> suite = QChar::decomposition(caractere).toUcs4();
    if (suite.isEmpty())
        return caractere;
    const char32_t base = Denuder(suite[0], accents);  // a handful of levels at most, fixed by Unicode
    for (qsizetype rang = 1; rang < suite.size(); ++rang)
        accents = AjouterAccent(accents, suite[rang]);
    return base;
}

Poids CalculerPoids(char32_t caractere)
{
    Poids poids;
    if (EstAccent(caractere)) {
        poids.accents = caractere;
        return poids;
    }
    const char32_t base = Denuder(caractere, poids.accents);
    const char32_t pli = QChar::toCaseFolded(base);
    poids.casse = pli != base ? 1 : 0;
    const char* lettres = pli == U'œ' ? "oe" : pli == U'æ' ? "ae" : pli == U'ß' ? "ss" : nullptr;
    if (!lettres) {
        poids.lettre = PoidsLettre(base);
        return poids;
    }
    poids.lettre = PoidsLettre(static_cast<unsigned char>(lettres[0]));
    poids.lettreSuivante = PoidsLettre(static_cast<unsigned char>(lettres[1]));
    poids.accents = AjouterAccent(poids.accents, 1);
    return poids;
}

const Poids* TablePoids()
{
    static const std::vector<Poids> table = [] {
        std::vector<Poids> nouvelle;
        for (char32_t caractere = 0; caractere < limiteTable; ++caractere)
            nouvelle.push_back(CalculerPoids(caractere));
        return nouvelle;
    }();
    return table.data();
}

// Gives the weights of a text one letter at a time.
class Lettres {
public:
    explicit Lettres(std::string_view texte) : texte_(texte), table_(TablePoids()) {}

    // False at the end. Accents that no letter bears are given with the letter 0.
    bool Suivante(Poids& poids)
    {
        if (enAttente_ != 0) {
            poids = {enAttente_, 0, 0, 0};
            enAttente_ = 0;
            return true;
        }
        if (position_ >= texte_.size())
            return false;
        poids = Prendre();
        enAttente_ = poids.lettreSuivante;
        while (position_ < texte_.size() && Octet(texte_, position_) >= 0x80) {
            const size_t avant = position_;
            const Poids accent = Prendre();
            if (accent.lettre != 0) {
                position_ = avant;
                break;
            }
            poids.accents = AjouterAccent(poids.accents, accent.accents);
        }
        return true;
    }

private:
    Poids Prendre()
    {
        const char32_t caractere = CaractereSuivant(texte_, position_);
        return caractere < limiteTable ? table_[caractere] : CalculerPoids(caractere);
    }

    std::string_view texte_;
    const Poids* table_;
    size_t position_ = 0;
    uint32_t enAttente_ = 0;
};

// Length of the beginning that both texts share, back to an ASCII character: nothing behind it changes what precedes.
size_t DebutCommun(std::string_view gauche, std::string_view droite)
{
    const auto fin = gauche.begin() + static_cast<std::ptrdiff_t>(std::min(gauche.size(), droite.size()));
    size_t commun = static_cast<size_t>(std::mismatch(gauche.begin(), fin, droite.begin()).first - gauche.begin());
    while (commun > 0 && Octet(gauche, --commun) >= 0x80) {
    }
    return commun;
}

// A weight in 16 bits, in the same order but for rare characters, which become equal; above 0, the end of a text.
uint64_t Abreger(uint32_t poids)
{
    constexpr uint32_t chiffres = 0x3000, lettres = 0x4000, plusGrand = 0xFFFF;
    if (poids < PoidsChiffres)
        return std::min(poids + 1, chiffres - 1);
    if (poids < PoidsLettres)
        return std::min(poids - PoidsChiffres + chiffres, lettres - 1);
    return std::min(poids - PoidsLettres + lettres, plusGrand);
}

int Signe(uint32_t gauche, uint32_t droite)
{
    return gauche < droite ? -1 : gauche > droite ? 1 : 0;
}

template <typename Conversion>
std::string Convertir(std::string_view texte, const Conversion& conversion)
{
    std::string resultat;
    resultat.reserve(texte.size());
    for (size_t position = 0; position < texte.size();)
        AjouterCaractere(resultat, conversion(CaractereSuivant(texte, position)));
    return resultat;
}
}  // namespace

std::string AnsiEnTexte(std::string_view octets)
{
    std::string texte;
    texte.reserve(octets.size() + octets.size() / 4);
    for (size_t rang = 0; rang < octets.size(); ++rang) {
        const unsigned char octet = Octet(octets, rang);
        AjouterCaractere(texte, octet >= 0x80 && octet < 0xA0 ? ansiHaut[octet - 0x80U] : octet);
    }
    return texte;
}

std::string DosEnTexte(std::string_view octets)
{
    std::string texte;
    texte.reserve(octets.size() + octets.size() / 4);
    for (const char c : octets) {
        const auto octet = static_cast<unsigned char>(c);
        if (octet < 0x80)
            texte += c;
        else
            AjouterCaractere(texte, dosHaut[octet - 0x80U]);
    }
    return texte;
}

int OctetAnsi(char32_t caractere)
{
    if (caractere < 0x80 || (caractere >= 0xA0 && caractere <= 0xFF))
        return static_cast<int>(caractere);
    const auto* haut = std::find(ansiHaut.begin(), ansiHaut.end(), caractere);
    return haut == ansiHaut.end() ? -1 : 0x80 + static_cast<int>(haut - ansiHaut.begin());
}

bool TexteEnAnsi(std::string_view texte, std::string& octets)
{
    std::string resultat;
    resultat.reserve(texte.size());
    for (size_t position = 0; position < texte.size();) {
        const int octet = OctetAnsi(CaractereSuivant(texte, position));
        if (octet < 0)
            return false;
        resultat += static_cast<char>(octet);
    }
    octets = std::move(resultat);
    return true;
}

bool Utf8Valide(std::string_view octets)
{
    size_t position = 0;
    while (position < octets.size()) {
        uint64_t bloc = 0;
        if (octets.size() - position >= sizeof bloc) {
            std::memcpy(&bloc, octets.data() + position, sizeof bloc);
            if ((bloc & 0x8080808080808080U) == 0) {
                position += sizeof bloc;
                continue;
            }
        }
        char32_t caractere = 0;
        const size_t longueur = LongueurValide(octets, position, caractere);
        if (longueur == 0)
            return false;
        position += longueur;
    }
    return true;
}

std::string NomEnTexte(std::string_view octets)
{
    return Utf8Valide(octets) ? std::string(octets) : AnsiEnTexte(octets);
}

std::string Utf16EnTexte(std::u16string_view unites)
{
    return QStringView(unites).toUtf8().toStdString();
}

std::string Composer(std::string_view texte)
{
    const QString lettres = QString::fromUtf8(texte.data(), static_cast<qsizetype>(texte.size()));
    return lettres.normalized(QString::NormalizationForm_C).toStdString();
}

std::string Minuscules(std::string_view texte)
{
    return Convertir(texte, [](char32_t caractere) -> char32_t {
        if (caractere < 0x80)
            return caractere >= 'A' && caractere <= 'Z' ? caractere + 32 : caractere;
        return QChar::toLower(caractere);
    });
}

std::string Majuscules(std::string_view texte)
{
    return Convertir(texte, [](char32_t caractere) -> char32_t {
        if (caractere < 0x80)
            return caractere >= 'a' && caractere <= 'z' ? caractere - 32 : caractere;
        return caractere == U'µ' ? caractere : QChar::toUpper(caractere);  // the sign has no capital of its own
    });
}

size_t NombreCaracteres(std::string_view texte)
{
    size_t nombre = 0;
    for (size_t position = 0; position < texte.size(); ++nombre)
        CaractereSuivant(texte, position);
    return nombre;
}

char32_t CaractereSuivant(std::string_view texte, size_t& position)
{
    char32_t caractere = 0;
    const size_t longueur = LongueurValide(texte, position, caractere);
    if (longueur == 0)
        return Octet(texte, position++);
    position += longueur;
    return caractere;
}

void AjouterCaractere(std::string& texte, char32_t caractere)
{
    const auto ajouter = [&texte](char32_t octet) { texte += static_cast<char>(octet); };
    if (caractere < 0x80) {
        ajouter(caractere);
        return;
    }
    if (caractere < 0x800) {
        ajouter(0xC0 | caractere >> 6);
    } else if (caractere < 0x10000) {
        ajouter(0xE0 | caractere >> 12);
        ajouter(0x80 | (caractere >> 6 & 0x3F));
    } else {
        ajouter(0xF0 | (caractere >> 18 & 0x07));
        ajouter(0x80 | (caractere >> 12 & 0x3F));
        ajouter(0x80 | (caractere >> 6 & 0x3F));
    }
    ajouter(0x80 | (caractere & 0x3F));
}

char32_t SansCasse(char32_t caractere)
{
    static const std::vector<char32_t> table = [] {
        std::vector<char32_t> nouvelle;
        for (char32_t rang = 0; rang < limiteTable; ++rang)
            nouvelle.push_back(QChar::toCaseFolded(rang));
        return nouvelle;
    }();
    if (caractere < limiteTable)
        return table[caractere];
    return caractere > 0x10FFFF ? caractere : QChar::toCaseFolded(caractere);
}

int ComparerFrancais(std::string_view gauche, std::string_view droite)
{
    const size_t commun = DebutCommun(gauche, droite);
    gauche.remove_prefix(commun);
    droite.remove_prefix(commun);
    Lettres lettresGauche(gauche);
    Lettres lettresDroite(droite);
    int accents = 0;
    int casse = 0;
    while (true) {
        Poids a;
        Poids b;
        const bool resteGauche = lettresGauche.Suivante(a);
        const bool resteDroite = lettresDroite.Suivante(b);
        if (!resteGauche && !resteDroite)
            break;
        if (resteGauche != resteDroite)
            return resteGauche ? 1 : -1;
        if (a.lettre != b.lettre)
            return Signe(a.lettre, b.lettre);
        if (accents == 0)
            accents = Signe(a.accents, b.accents);
        if (casse == 0)
            casse = Signe(a.casse, b.casse);
    }
    if (accents != 0)
        return accents;
    return casse != 0 ? casse : gauche.compare(droite);
}

DebutFrancais PeserDebut(std::string_view texte)
{
    constexpr size_t lettresParNombre = 4;
    DebutFrancais debut{};
    Lettres lettres(texte);
    Poids poids;
    bool reste = true;
    for (uint64_t& nombre : debut) {
        for (size_t i = 0; i < lettresParNombre; ++i) {
            reste = reste && lettres.Suivante(poids);
            nombre = nombre << 16 | (reste ? Abreger(poids.lettre) : 0);
        }
    }
    return debut;
}
