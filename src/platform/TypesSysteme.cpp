#include "platform/TypesSysteme.h"

#include <QMimeDatabase>
#include <QMimeType>

namespace {
// An invalid type for an unknown extension.
QMimeType TypeDe(const std::string& extension)
{
    if (extension.empty())
        return {};
    const QString nom = QStringLiteral("x.") + QString::fromStdString(extension);
    const QMimeType type = QMimeDatabase().mimeTypeForFile(nom, QMimeDatabase::MatchExtension);
    return type.isDefault() ? QMimeType() : type;
}
}  // namespace

std::string NomTypeFichier(const std::string& extension)
{
    const QMimeType type = TypeDe(extension);
    return type.isValid() ? type.comment().toStdString() : std::string();
}

std::string NomIconeFichier(const std::string& extension)
{
    const QMimeType type = TypeDe(extension);
    return type.isValid() ? type.iconName().toStdString() : std::string();
}

std::string NomIconeGenerique(const std::string& extension)
{
    const QMimeType type = TypeDe(extension);
    return type.isValid() ? type.genericIconName().toStdString() : std::string();
}
