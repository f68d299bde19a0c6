#include "data/store_files.h"

#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <filesystem>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

/// Whether two names are of one file or folder. A live data file is not opened for it: closing it again would end the
/// locks that the engine holds on it.
bool isSame(const QFileInfo& one, const QFileInfo& other) {
    std::error_code notThere;
    return std::filesystem::equivalent(one.filesystemFilePath(), other.filesystemFilePath(), notThere);
}

bool isDatabase(const QFileInfo& info) {
    QFile file(info.filePath());
    return info.isFile() && file.open(QIODevice::ReadOnly) && file.read(16) == QByteArrayLiteral("SQLite format 3\0");
}

}  // namespace

QString placeOf(const QString& path) {
    constexpr int mostLinks = 40;
    QFileInfo file(path);
    for (int links = 0; file.isSymLink() && links < mostLinks; ++links) {
        file.setFile(file.symLinkTarget());
    }
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    return QDir(folder.isEmpty() ? file.absolutePath() : folder).filePath(file.fileName());
}

bool belongsToDataFile(const QString& path, const QString& databasePath) {
    const QFileInfo target(placeOf(path));
    const QFileInfo dataFile(placeOf(databasePath));
    const auto bearsItsName = [&](const QString& name) {
        return name.startsWith(dataFile.fileName(), Qt::CaseInsensitive);
    };
    if (bearsItsName(target.fileName()) && isSame(QFileInfo(target.path()), QFileInfo(dataFile.path()))) {
        return true;
    }
    const QFileInfoList beside = dataFile.dir().entryInfoList(QDir::Files | QDir::Hidden | QDir::System);
    return std::any_of(beside.begin(), beside.end(),
                       [&](const QFileInfo& file) { return bearsItsName(file.fileName()) && isSame(file, target); }) ||
           isDatabase(target);
}

bool setAside(const QString& path, const QStringList& endings) {
    return std::all_of(endings.begin(), endings.end(), [&](const QString& ending) {
        const QString leftover = path + ending;
        const QString dated = leftover + u'-' + QDate::currentDate().toString(Qt::ISODate);
        QString name = dated;
        for (int number = 2; QFile::exists(name); ++number) {
            name = dated + u'-' + QString::number(number);
        }
        return !QFile::exists(leftover) || QFile::rename(leftover, name);
    });
}

QString copyAside(const QString& path, const QString& copy) {
    removeCopy(copy);
    for (const QLatin1String ending : {QLatin1String(), kJournal, kLog}) {
        QFile file(path + ending);
        if (file.exists() && !file.copy(copy + ending)) {
            removeCopy(copy);
            return file.errorString();
        }
    }
    return {};
}

void removeCopy(const QString& copy) {
    for (const QLatin1String ending : {QLatin1String(), kJournal, kLog, kLogIndex}) {
        QFile::remove(copy + ending);
    }
}

QString withCsvEnding(const QString& path) {
    if (!QFileInfo(path).suffix().isEmpty()) {
        return path;
    }
    return path + (path.endsWith(u'.') ? u"csv"_s : u".csv"_s);
}

void writeWholeFile(const QString& path, const QByteArray& bytes, const QString& refusal, const QString& databasePath) {
    const auto refuse = [&](const QString& reason) {
        throw std::runtime_error(u"%1: %2.\n\n%3"_s.arg(refusal, reason, QDir::toNativeSeparators(path)).toStdString());
    };
    if (belongsToDataFile(path, databasePath)) {
        refuse(u"this is a data file, or belongs to one. Please choose another name"_s);
    }
    QSaveFile file(path);
    // A commit alone does not notice that the last bytes, written when the file is closed, found no room on the disk.
    const bool written = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(bytes) == bytes.size();
    if (!written || !file.commit()) {
        refuse(file.errorString());
    }
}

}  // namespace kelvora
