#include "printing/printrequest.h"

// The usual one offers a file itself.
QDialog *PrintRequest::createFileDialog()
{
    return createPrintDialog();
}
