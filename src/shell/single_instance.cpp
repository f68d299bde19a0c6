#include "shell/single_instance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QThread>

using namespace Qt::StringLiterals;

namespace kelvora {
namespace {

constexpr int kAnswerTime = 1'000;  // milliseconds
constexpr int kPause = 50;

/// The same for every way to write the place of a data file. Its folder is made: at the very first start there is none.
QString serverName(const QString& databasePath) {
    const QFileInfo file(databasePath);
    QDir().mkpath(file.absolutePath());
    const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
    const QByteArray place = (folder + u'/' + file.fileName()).toUtf8();
    return u"kelvora-"_s +
           QString::fromLatin1(QCryptographicHash::hash(place, QCryptographicHash::Sha256).toHex().first(24));
}

}  // namespace

SingleInstance::SingleInstance(const QString& databasePath)
    : m_server(serverName(databasePath)), m_lock(databasePath + u".lock"_s), m_calls(std::make_unique<QLocalServer>()) {
    // Held all day: its age says nothing, only whether the program that took it still runs.
    m_lock.setStaleLockTime(0);
    m_calls->setSocketOptions(QLocalServer::UserAccessOption);
    connect(m_calls.get(), &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* call = m_calls->nextPendingConnection()) {
            call->deleteLater();
            Q_EMIT startedAgain();
        }
    });
}

SingleInstance::~SingleInstance() = default;

bool SingleInstance::claim() {
    // Where no lock can be made at all, as in a folder that may not be written to, the start itself says what is wrong.
    const bool taken = !m_lock.tryLock(0) && m_lock.error() == QLockFile::LockFailedError;
    if (taken && callFirst()) {
        return false;
    }
    // Nobody answers behind a lock that is taken: it was left on another computer, or its number belongs to a later
    // program. The data file has the engine's own locks, so going on is safe.
    listen();
    return true;
}

void SingleInstance::listen() {
    QLocalServer::removeServer(m_server);
    m_calls->listen(m_server);
}

bool SingleInstance::callFirst() const {
    QElapsedTimer waited;
    waited.start();
    // The first may have taken the lock this very moment, and listens in the next.
    do {
        QLocalSocket call;
        call.connectToServer(m_server);
        if (call.waitForConnected(kAnswerTime)) {
            return true;
        }
        QThread::msleep(kPause);
    } while (!waited.hasExpired(kAnswerTime));
    return false;
}

}  // namespace kelvora
