// Shows a text file and marks a line.
#pragma once

#include <QDialog>

class TextFileDialog : public QDialog {
    Q_OBJECT
public:
    /// Deletes itself when it is closed. @p line counts from 1; 0 marks none.
    TextFileDialog(const QString &path, int line, QWidget *parent);
};
