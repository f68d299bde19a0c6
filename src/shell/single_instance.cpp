#include "shell/single_instance.h"

#include "data/store_files.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>

#include <stdexcept>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kConnectTime = 1'000;  // milliseconds
constexpr int kAnswerTime = 3'000;
constexpr int kPause = 50;

/// The same for every way to write the place of a data file.
QString serverName(const QString& place) {
    return u"kelvora-"_s +
           QString::fromLatin1(QCryptographicHash::hash(place.toUtf8(), QCryptographicHash::Sha256).toHex().first(24));
}

/// Its folder is made: at the very first start there is none.
QString placeWithFolder(const QString& databasePath) {
    QDir().mkpath(QFileInfo(databasePath).absolutePath());
    return placeOf(databasePath);
}

}  // namespace

SingleInstance::SingleInstance(const QString& databasePath)
    : m_place(placeWithFolder(databasePath)), m_lock(m_place + u".lock"_s), m_calls(std::make_unique<QLocalServer>()) {
    // Held all day: its age says nothing, only whether the program that took it still runs.
    m_lock.setStaleLockTime(0);
    m_calls->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_calls.get(), &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* call = m_calls->nextPendingConnection()) {
            Q_EMIT startedAgain();
            call->write("shown");
            call->flush();
            call->deleteLater();
        }
    });
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim() {
    // Where no lock can be made at all, as in a folder that may not be written to, the start itself says what is wrong.
    const auto free = [this] { return m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError; };
    if (!free()) {
        if (callFirst()) {
            return false;
        }
        // What was left on another computer bears that one's name; but nobody holds it, and then it can be removed.
        const bool held = !m_lock.removeStaleLockFile() || !free();
        if (held && QFileInfo(QFileInfo(m_place).path()).isWritable()) {
            throw std::runtime_error(
                u"Kelvora has this data file open already, but does not answer: it is busy, hangs, "
                "or was started in another session. Go to its window, or end it, then start "
                "again.\n\n%1"_s.arg(QDir::toNativeSeparators(m_place))
                    .toStdString());
        }
    }
    listen();
    return true;
}

void SingleInstance::listen() {
    QLocalServer::removeServer(serverName(m_place));
    m_calls->listen(serverName(m_place));
}

bool SingleInstance::callFirst() const {
    QElapsedTimer waited;
    waited.start();
    // The first may have taken the lock this very moment, and listens in the next.
    do {
        QLocalSocket call;
        call.connectToServer(serverName(m_place));
        if (call.waitForConnected(kConnectTime)) {
            // A program that hangs is connected to by the system, and says nothing.
            return call.waitForReadyRead(kAnswerTime);
        }
        QThread::msleep(kPause);
    } while (!waited.hasExpired(kConnectTime));
    return false;
}

}  // namespace kelvora
