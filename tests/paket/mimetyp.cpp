// Prints, one line per file, the MIME type that the shared MIME database of the
// desktop (XDG_DATA_DIRS) gives the file by its name and content, as a Qt file
// manager sees it.
#include <QMimeDatabase>
#include <cstdio>

int main(int argc, char** argv) {
    const QMimeDatabase db;
    for (int i = 1; i < argc; ++i)
        std::printf("%s\n", qPrintable(db.mimeTypeForFile(QString::fromLocal8Bit(argv[i])).name()));
    return 0;
}
