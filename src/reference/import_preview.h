#pragma once

#include "records/import_file.h"
#include "reference/reference_panel.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kelvora {

class Grid;
class TextTable;

/// The import of a comma-separated file: the file is chosen, read into a preview from which rows can be taken out, and
/// stored by "Save" only. What a record becomes is the matter of the import of vessels and that of species.
class ImportPreview : public ReferencePanel {
    Q_OBJECT

protected:
    struct Captions {
        QString frame, file, preview, save, remove, clear;
    };

    ImportPreview(const ImportLayout& layout, const Captions& captions, Connection& connection, Dialogs& dialogs);

    /// Completes the records of a file before they are shown.
    virtual void complete(std::vector<CsvRecord>& records);
    /// The records are about to be stored, inside the transaction of the save.
    virtual void beginStoring() {}
    /// Stores one record, inside the transaction of the save, and counts what became of it.
    virtual void store(const CsvRecord& record, ImportOutcome& outcome) = 0;
    /// The stored rows have changed.
    virtual void refreshStored() = 0;
    /// Whether the sampler may take a row out of the preview.
    [[nodiscard]] virtual bool mayRemove(const CsvRecord& record) const;
    /// The records of a file are shown.
    virtual void loaded() {}

    /// For an import inside another frame: a caption, but no frame of its own.
    void leaveFrame();

    [[nodiscard]] Grid* grid() const { return m_grid; }
    [[nodiscard]] TextTable* table() const { return m_table; }
    [[nodiscard]] QPushButton* clearButton() const { return m_clear; }

private:
    void chooseFile();
    [[nodiscard]] bool read(const QString& path);
    /// The records of a file; nothing if it is refused or was given up, which the line and a box say then.
    [[nodiscard]] std::optional<std::vector<CsvRecord>> recordsOf(const QString& path);
    void refuse(const QString& message, const QString& line);
    void show(std::vector<CsvRecord> records);
    void showCount();
    void save();
    void saveOthers();
    [[nodiscard]] ImportOutcome storeAll();
    void removeRow();
    void clear();

    const ImportLayout& m_layout;
    QGroupBox* m_frame;
    QLineEdit* m_path;
    Grid* m_grid;
    TextTable* m_table;
    QLabel* m_line;
    QPushButton* m_save;
    QPushButton* m_remove;
    QPushButton* m_clear;
    QPushButton* m_saveOthers;
    std::vector<CsvRecord> m_records;  ///< those that the preview shows; none while it shows a blank row
    std::vector<CsvRecord> m_others;   ///< left out by the last save: other boats of known names
    int m_passedOver = 0;              ///< empty lines of the file
};

}  // namespace kelvora
