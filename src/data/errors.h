#pragma once

#include <QString>

#include <stdexcept>
#include <string>
#include <utility>

namespace kelvora {

/// What the data file could not do, in words for the sampler (UTF-8 in what()): which statement failed and why.
class DataError : public std::runtime_error {
public:
    /// The reason alone is for a message that names the obstacle in words of its own.
    explicit DataError(const QString& message, QString reason = {})
        : std::runtime_error(message.toStdString()), m_reason(std::move(reason)) {}

    [[nodiscard]] const QString& reason() const { return m_reason; }

private:
    QString m_reason;
};

/// The error of a statement that the engine refused. resultCode is the engine's, reason its own words.
DataError statementError(const std::string& statement, int resultCode, const QString& reason);

/// Why the engine refused, in plain words; falls back to its own.
QString plainReason(int resultCode, const QString& reason);

}  // namespace kelvora
