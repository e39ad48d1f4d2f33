#include "platform/TypesSysteme.h"

#include <algorithm>

#include <QMimeDatabase>
#include <QMimeType>

namespace {

// Longer than any that the database knows, in bytes.
constexpr size_t LongueurMaximale = 32;

// An extension as files have them. "/" would make another name of it, brackets and stars belong to patterns.
bool EstPlausible(std::string_view extension)
{
    const auto interdit = [](unsigned char c) {
        return c <= ' ' || c == 0x7F ||
               std::string_view("/\\.:*?[]").find(static_cast<char>(c)) != std::string_view::npos;
    };
    return !extension.empty() && extension.size() <= LongueurMaximale &&
           std::none_of(extension.begin(), extension.end(), interdit);
}

// An invalid type for an unknown extension.
QMimeType TypeDe(const std::string& extension)
{
    if (!EstPlausible(extension))
        return {};
    const QString nom = QStringLiteral("x.") + QString::fromStdString(extension);
    const QMimeType type = QMimeDatabase().mimeTypeForFile(nom, QMimeDatabase::MatchExtension);
    return type.isDefault() ? QMimeType() : type;
}

}  // namespace

std::string TypeMime(const std::string& extension)
{
    const QMimeType type = TypeDe(extension);
    return type.isValid() ? type.name().toStdString() : std::string();
}

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
