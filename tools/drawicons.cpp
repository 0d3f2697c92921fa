// drawicons: draws the program's SVG pictures into pixels at build time, so that the
// window shows them with neither Qt's SVG engine nor an image reader (Qt's readers,
// PNG's among them, load every image format plug-in before they read a byte).
//
//   drawicons OUT.cpp NAME=FILE.svg:SIZE,SIZE... [NAME=...]
//
// OUT.cpp defines, for each NAME, the function `std::span<const Drawing> NAME()` of
// gui/app/drawings.h: the picture at each size, as premultiplied ARGB words.
#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <cstdio>

int main(int argc, char** argv) {
    // Shapes need no screen: an application of Qt Core is enough.
    QCoreApplication app(argc, argv);
    const QStringList args = QCoreApplication::arguments();
    if (args.size() < 3) {
        std::fprintf(stderr, "usage: drawicons OUT.cpp NAME=FILE.svg:SIZE,SIZE...\n");
        return 2;
    }
    QString out = "// Written by tools/drawicons from resources/icons: do not edit.\n"
                  "#include \"gui/app/drawings.h\"\n\n"
                  "namespace parlex::gui::drawings {\nnamespace {\n";
    QString functions;
    for (const QString& arg : args.mid(2)) {
        const QString name = arg.section('=', 0, 0);
        const QString file = arg.section('=', 1).section(':', 0, -2);
        const QStringList sizes = arg.section(':', -1).split(',');
        QSvgRenderer svg(file);
        if (!svg.isValid()) {
            std::fprintf(stderr, "drawicons: %s is no SVG picture\n", qPrintable(file));
            return 1;
        }
        QString table;
        for (const QString& sizeText : sizes) {
            const int size = sizeText.toInt();
            QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
            image.fill(Qt::transparent);
            QPainter painter(&image);
            svg.render(&painter);
            painter.end();
            const QString array = QString("%1%2").arg(name).arg(size);
            out += QString("const std::uint32_t %1[] = {").arg(array);
            for (int y = 0; y < size; ++y) {
                const auto* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
                for (int x = 0; x < size; ++x)
                    out += QString("%1%2u,").arg((x % 8) ? " " : "\n    ").arg(line[x]);
            }
            out += "\n};\n";
            table += QString("{%1, %2}, ").arg(size).arg(array);
        }
        out += QString("const Drawing %1Sizes[] = {%2};\n").arg(name, table);
        functions += QString("std::span<const Drawing> %1() {\n    return %1Sizes;\n}\n").arg(name);
    }
    out += "} // namespace\n\n" + functions + "} // namespace parlex::gui::drawings\n";
    QFile target(args[1]);
    if (!target.open(QIODevice::WriteOnly) || target.write(out.toUtf8()) < 0) {
        std::fprintf(stderr, "drawicons: cannot write %s\n", qPrintable(args[1]));
        return 1;
    }
    return 0;
}
