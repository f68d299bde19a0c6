#pragma once

#include <QLockFile>
#include <QObject>

#include <memory>

class QLocalServer;

namespace kelvora {

/// One program a data file, by whatever link it is reached: who holds the lock beside it decides. A second start shows
/// the window of the first instead of opening another. Programs on other data files are other programs. What a killed
/// program leaves behind keeps nobody from starting.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    explicit SingleInstance(const QString& databasePath);
    ~SingleInstance() override;

    /// Whether this program is to go on. If not, the one that has the data file open was told to show its window;
    /// throws std::runtime_error if that one does not answer.
    bool claim();

Q_SIGNALS:
    /// The program was started once more: its window is wanted.
    void startedAgain();

private:
    void listen();
    [[nodiscard]] bool callFirst() const;

    QString m_place;  ///< of the data file
    QLockFile m_lock;
    std::unique_ptr<QLocalServer> m_calls;
};

}  // namespace kelvora
