#include "archives/EntetesRar5.h"

#include "archives/ChampsOctets.h"

bool BlocRar5::Lire(LecteurOctets& lecteur)
{
    constexpr size_t plusLongNombre = 10;

    octets.clear();
    if (!lecteur.PetitBoutiste(somme))
        return false;
    uint8_t octet = 0x80;
    while (octet >= 0x80) {
        if (octets.size() == plusLongNombre || !lecteur.PetitBoutiste(octet))
            return false;
        octets += static_cast<char>(octet);
    }
    taille = ChampsOctets(octets).Variable();
    if (taille == 0 || taille > TailleMaximale || taille > lecteur.Reste())
        return false;

    const size_t debut = octets.size();
    octets.resize(debut + static_cast<size_t>(taille));
    if (!lecteur.Lire(octets.data() + debut, static_cast<size_t>(taille)) || !SommeJuste(octets, somme))
        return false;

    ChampsOctets suite(std::string_view(octets).substr(debut));
    type = suite.Variable();
    drapeaux = suite.Variable();
    tailleSupplement = drapeaux & AvecSupplement ? suite.Variable() : 0;
    tailleDonnees = drapeaux & AvecDonnees ? suite.Variable() : 0;
    champs = suite.Octets(suite.Reste());
    return suite.Complets();
}

bool PrincipalRar5::Lire(const BlocRar5& bloc)
{
    ChampsOctets suite(bloc.champs);
    drapeaux = suite.Variable();
    return suite.Complets();
}

bool MembreRar5::Lire(const BlocRar5& bloc)
{
    ChampsOctets suite(bloc.champs);
    drapeaux = suite.Variable();
    tailleReelle = suite.Variable();
    attributs = suite.Variable();
    date = drapeaux & AvecDate ? suite.PetitBoutiste<uint32_t>() : 0;
    sommeDonnees = drapeaux & AvecSomme ? suite.PetitBoutiste<uint32_t>() : 0;
    compression = suite.Variable();
    systeme = suite.Variable();
    tailleNom = suite.Variable();
    nom = suite.Octets(tailleNom);
    return suite.Complets();
}
