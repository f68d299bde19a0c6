#include "data/whole_file.h"

#include "data/store_files.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora {

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
