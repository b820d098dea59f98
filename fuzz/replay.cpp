// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// Runs LLVMFuzzerTestOneInput over files and directories of files, as libFuzzer does with
// -runs=0, for builds without libFuzzer. Arguments starting with '-' are libFuzzer's and ignored.

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

static int runFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        fprintf(stderr, "replay: cannot read %s\n", qPrintable(path));
        return 1;
    }
    const QByteArray input = file.readAll();
    fprintf(stderr, "replay: %s\n", qPrintable(path));
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(input.constData()),
                           size_t(input.size()));
    return 0;
}

int main(int argc, char **argv)
{
    int inputs = 0, failures = 0;
    for (int i = 1; i < argc; ++i) {
        const QString arg = QString::fromLocal8Bit(argv[i]);
        if (arg.startsWith('-'))
            continue;
        QStringList files {arg};
        if (QFileInfo(arg).isDir()) {
            files.clear();
            for (const QString &name : QDir(arg).entryList(QDir::Files, QDir::Name))
                files << QDir(arg).filePath(name);
        }
        for (const QString &path : qAsConst(files)) {
            failures += runFile(path);
            ++inputs;
        }
    }
    fprintf(stderr, "replay: %d inputs\n", inputs);
    return failures || inputs == 0 ? 1 : 0;
}
