<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>FtpMachine</name>
    <message>
        <source>Invalid character in name</source>
        <translation>Ungültiges Zeichen im Namen</translation>
    </message>
    <message>
        <source>Host %1 not found</source>
        <translation>Rechner %1 nicht gefunden</translation>
    </message>
    <message>
        <source>Connection refused to host %1</source>
        <translation>Der Rechner %1 verweigert die Verbindung</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Verbindung mit %1 beendet</translation>
    </message>
    <message>
        <source>The local file has changed</source>
        <translation>Die lokale Datei hat sich geändert</translation>
    </message>
    <message>
        <source>Connecting to host failed:
%1</source>
        <translation>Verbindung mit dem Rechner gescheitert:
%1</translation>
    </message>
    <message>
        <source>Login failed:
%1</source>
        <translation>Anmeldung gescheitert:
%1</translation>
    </message>
    <message>
        <source>Uploading file failed:
%1</source>
        <translation>Hochladen der Datei gescheitert:
%1</translation>
    </message>
    <message>
        <source>Connection refused for data connection</source>
        <translation>Datenverbindung verweigert</translation>
    </message>
    <message>
        <source>Data connection closed</source>
        <translation>Datenverbindung beendet</translation>
    </message>
</context>
<context>
    <name>ImagePropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Bildeigenschaften</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Breite [Pixel]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Höhe [Pixel]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Bittiefe</translation>
    </message>
    <message>
        <source>Colors in Palette</source>
        <translation>Farben in der Palette</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
    <message>
        <source>Bytes (not including palette)</source>
        <translation>Bytes (ohne Palette)</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Bytes pro Zeile</translation>
    </message>
    <message>
        <source>Zoom coefficient</source>
        <translation>Zoomfaktor</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>PropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Bildeigenschaften</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Breite [Pixel]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Höhe [Pixel]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Bittiefe</translation>
    </message>
    <message>
        <source>Colors In Pallette</source>
        <translation>Farben in der Palette</translation>
    </message>
    <message>
        <source>GrayScale</source>
        <translation>Graustufen</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Bytes</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Bytes pro Zeile</translation>
    </message>
    <message>
        <source>Zoom Coefficient</source>
        <translation>Zoomfaktor</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>Alt+O</source>
        <translation>Alt+O</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nein</translation>
    </message>
</context>
<context>
    <name>Q3ScrollView</name>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>Horizontale Bildlaufleiste</translation>
    </message>
    <message>
        <source>Vertical scroll bar</source>
        <translation>Vertikale Bildlaufleiste</translation>
    </message>
</context>
<context>
    <name>Q3UrlOperator</name>
    <message>
        <source>The protocol `%1&apos; is not supported</source>
        <translation>Das Protokoll „%1“ wird nicht unterstützt</translation>
    </message>
</context>
<context>
    <name>ResizeDialog</name>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>Pixel Dimensions</source>
        <translation>Abmessungen in Pixeln</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Invalid Number</source>
        <translation>Ungültige Zahl</translation>
    </message>
    <message>
        <source>Check if Width and Height
contain non-digit characters
or more than 5 digits.</source>
        <translation>Prüfen Sie, ob Breite und Höhe
andere Zeichen als Ziffern
oder mehr als 5 Ziffern enthalten.</translation>
    </message>
    <message>
        <source>Image side is too small</source>
        <translation>Bildseite ist zu klein</translation>
    </message>
    <message>
        <source>Set Width and Height to 10 pixels or more.
</source>
        <translation>Geben Sie für Breite und Höhe mindestens 10 Pixel an.
</translation>
    </message>
    <message>
        <source>Resulting size is too big</source>
        <translation>Das Ergebnis ist zu groß</translation>
    </message>
    <message>
        <source>Decrease Width and Height
to fit the image in computer&apos;s memory.</source>
        <translation>Verringern Sie Breite und Höhe,
damit das Bild in den Arbeitsspeicher passt.</translation>
    </message>
</context>
<context>
    <name>SimplePreviewDialog</name>
    <message>
        <source>Preview</source>
        <translation>Vorschau</translation>
    </message>
    <message>
        <source>Page of %1 x %2 pixels, shown at %3 x %4.</source>
        <translation>Seite mit %1 x %2 Pixeln, gezeigt mit %3 x %4.</translation>
    </message>
</context>
<context>
    <name>UrlCopy</name>
    <message>
        <source>Could not open
%1</source>
        <translation>Öffnen gescheitert:
%1</translation>
    </message>
    <message>
        <source>Host %1 found</source>
        <translation>Rechner %1 gefunden</translation>
    </message>
    <message>
        <source>Connected to host %1</source>
        <translation>Verbunden mit %1</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Verbindung mit %1 beendet</translation>
    </message>
    <message>
        <source>Could not remove file or directory
%1</source>
        <translation>Entfernen der Datei oder des Ordners gescheitert:
%1</translation>
    </message>
</context>
<context>
    <name>dialog_frame</name>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
</context>
</TS>
