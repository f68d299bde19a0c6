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

/// What is imported, and what becomes of it.
struct ImportKind {
    const ImportLayout& layout;
    struct Captions {
        QString frame, file, preview, save, remove, clear;
    } captions;
    /// Completes the records of a file before they are shown.
    std::function<void(std::vector<CsvRecord>& records)> complete = [](auto&) {};
    /// Stores records, and calls a function after each of them.
    std::function<ImportOutcome(const std::vector<CsvRecord>& records, const std::function<void()>& count)> store;
    /// The stored rows have changed.
    std::function<void()> stored;
    /// Inside another frame: a caption, but no frame of its own.
    bool isFramed = true;
    /// Rows of species that were looked at stay blue, and one without a family is not taken out. The import is cleared
    /// from the first file on.
    bool isOfSpecies = false;
};

/// The import of a comma-separated file: the file is chosen, read into a preview from which rows can be taken out, and
/// stored by "Save" only.
class ImportPreview : public ReferencePanel {
    Q_OBJECT

public:
    ImportPreview(const ImportKind& kind, Connection& connection, Dialogs& dialogs);

private:
    void chooseFile();
    [[nodiscard]] bool read(const QString& path);
    /// The records of a file; nothing if it is refused or was given up, which the line and a box say then.
    [[nodiscard]] std::optional<std::vector<CsvRecord>> recordsOf(const QString& path);
    void refuse(const QString& message, const QString& line);
    void show(std::vector<CsvRecord> records);
    void showCount();
    void colourRow(int row);
    void save();
    [[nodiscard]] ImportOutcome storeAll();
    void saveOthers();
    void removeRow();
    void clear();

    const ImportKind m_kind;
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
