#pragma once

#include <QString>

#include <stdexcept>
#include <string>
#include <utility>

namespace kelvora {

/// What the data file could not do, and why, in words for the sampler (UTF-8 in what()).
class DataError : public std::runtime_error {
public:
    /// The reason alone is for a message that names the obstacle in words of its own.
    explicit DataError(const QString& message, QString reason = {})
        : std::runtime_error(message.toStdString()), m_reason(std::move(reason)) {}

    [[nodiscard]] const QString& reason() const { return m_reason; }

private:
    QString m_reason;
};

/// Why the engine refused, in plain words; falls back to its own. resultCode is the engine's, extended if known;
/// systemError the number of the error that the system gave it, 0 if none.
QString plainReason(int resultCode, const QString& reason, int systemError = 0);

}  // namespace kelvora
