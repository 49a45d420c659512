<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
