#pragma once

class QFileDialog;

/// Keeps the QFileSystemModel of a dialog from listing its folders: what its gathering thread finds, for each
/// file of a folder, is dropped. Of the model, which goes after the dialog without being waited for, its
/// indexes by path and what works on them remain. To be called before the dialog's folder is looked at, and
/// once.
void keepFileModelQuiet(QFileDialog *dialog);
