<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ImageDocument</name>
    <message>
        <source>Error saving TIFF image!</source>
        <translation>Fehler beim Speichern des TIFF-Bildes!</translation>
    </message>
    <message>
        <source>Multipage image doesn&apos;t supported with format &lt;%1&gt;</source>
        <translation>Mehrseitige Bilder werden vom Format &lt;%1&gt; nicht unterstützt</translation>
    </message>
    <message>
        <source>Can not open file for write: 
%1</source>
        <translation>Die Datei kann nicht zum Schreiben geöffnet werden: 
%1</translation>
    </message>
    <message>
        <source>The pages that are not open cannot be kept.</source>
        <translation>Die Seiten, die nicht geöffnet sind, können nicht erhalten werden.</translation>
    </message>
    <message>
        <source>This is no plain file.</source>
        <translation>Dies ist keine gewöhnliche Datei.</translation>
    </message>
    <message>
        <source>A file of this format cannot be larger than %1.</source>
        <extracomment>%1 is a size in bytes, such as &quot;4 GiB&quot;</extracomment>
        <translation>Eine Datei dieses Formats kann nicht größer als %1 sein.</translation>
    </message>
    <message>
        <source>An image of %1 x %2 pixels cannot be saved in format &lt;%3&gt; at its size.</source>
        <translation>Ein Bild von %1 x %2 Pixeln kann im Format &lt;%3&gt; nicht in seiner Größe gespeichert werden.</translation>
    </message>
</context>
<context>
    <name>ImageFileDialog</name>
    <message>
        <source>Can&apos;t append &apos;%1&apos; extension, file name is too long.</source>
        <translation>Die Erweiterung „%1“ kann nicht angehängt werden, der Dateiname ist zu lang.</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; already exists.
Do you want to replace it?</source>
        <translation>Die Datei „%1“ ist bereits vorhanden.
Möchten Sie sie ersetzen?</translation>
    </message>
</context>
<context>
    <name>ImageFormat</name>
    <message>
        <source>All graphic files</source>
        <translation>Alle Bilddateien</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Alle Dateien</translation>
    </message>
    <message>
        <source>Tagged Image File Format</source>
        <translation>Tagged Image File Format</translation>
    </message>
    <message>
        <source>Multipage TIFF</source>
        <translation>Mehrseitiges TIFF</translation>
    </message>
    <message>
        <source>Windows Bitmaps</source>
        <translation>Windows-Bitmaps</translation>
    </message>
    <message>
        <source>Portable Network Graphics</source>
        <translation>Portable Network Graphics</translation>
    </message>
    <message>
        <source>Portable Bitmap Monochrome</source>
        <translation>Portable Bitmap, schwarzweiß</translation>
    </message>
    <message>
        <source>Portable Bitmap Grayscale</source>
        <translation>Portable Bitmap, Graustufen</translation>
    </message>
    <message>
        <source>Portable Bitmap Colorful</source>
        <translation>Portable Bitmap, farbig</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>Page picture</source>
        <translation>Bild der Seite</translation>
    </message>
    <message>
        <source>No image load</source>
        <translation>Kein Bild geladen</translation>
    </message>
    <message>
        <source>[%1x%2]</source>
        <translation>[%1x%2]</translation>
    </message>
    <message>
        <source> (%1,%2)</source>
        <translation> (%1,%2)</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Save File As</source>
        <translation>Datei speichern unter</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Choose Type</source>
        <translation>Typ auswählen</translation>
    </message>
    <message>
        <source>Please, choose the type explicitly.</source>
        <translation>Bitte wählen Sie den Typ ausdrücklich aus.</translation>
    </message>
    <message>
        <source>Unsupported Format</source>
        <translation>Nicht unterstütztes Format</translation>
    </message>
    <message>
        <source>Image format %1 is not supported!</source>
        <translation>Das Bildformat %1 wird nicht unterstützt!</translation>
    </message>
    <message>
        <source>Save in:</source>
        <translation>Speichern in:</translation>
    </message>
</context>
<context>
    <name>SaveAllFileDialog</name>
    <message>
        <source>Autosave:</source>
        <translation>Automatisch speichern:</translation>
    </message>
    <message>
        <source>Use as basename for untitled images</source>
        <translation>Als Basisnamen für unbenannte Bilder verwenden</translation>
    </message>
</context>
</TS>
