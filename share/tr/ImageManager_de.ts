<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>ConfigureToolsDialog</name>
    <message>
        <source>Configure Tools</source>
        <translation>Werkzeuge einrichten</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Grafikeditor</translation>
    </message>
    <message>
        <source>Graphics Editor Command:</source>
        <translation>Befehl des Grafikeditors:</translation>
    </message>
    <message>
        <source>Graphics Editor Input &lt;BMP&gt;:</source>
        <translation>Eingabe des Grafikeditors &lt;BMP&gt;:</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Texterkennung</translation>
    </message>
    <message>
        <source>OCR Command:</source>
        <translation>Befehl der Texterkennung:</translation>
    </message>
    <message>
        <source>OCR Input &lt;PBM&gt;:</source>
        <translation>Eingabe der Texterkennung &lt;PBM&gt;:</translation>
    </message>
    <message>
        <source>OCR Output / Text Editor Input &lt;TXT&gt;):</source>
        <translation>Ausgabe der Texterkennung / Eingabe des Texteditors &lt;TXT&gt;:</translation>
    </message>
    <message>
        <source>Text Editor Command:</source>
        <translation>Befehl des Texteditors:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
</context>
<context>
    <name>FtpForm</name>
    <message>
        <source>Upload Image by FTP</source>
        <translation>Bild per FTP hochladen</translation>
    </message>
    <message>
        <source>Remote Host:</source>
        <translation>Entfernter Rechner:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Remote Path:</source>
        <translation>Entfernter Pfad:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Benutzername:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter ...</translation>
    </message>
    <message>
        <source>&amp;Upload</source>
        <translation>&amp;Hochladen</translation>
    </message>
    <message>
        <source>Delete after Upload</source>
        <translation>Nach dem Hochladen löschen</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Keine Übertragung im Gange</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>FEHLER</translation>
    </message>
    <message>
        <source>Read: %1</source>
        <translation>Lesen: %1</translation>
    </message>
    <message>
        <source>Write: %1</source>
        <translation>Schreiben: %1</translation>
    </message>
</context>
<context>
    <name>Global String Table</name>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Neu...</translation>
    </message>
    <message>
        <source>Creates new empty image</source>
        <translation>Erstellt ein neues, leeres Bild</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Opens an existing image file</source>
        <translation>Öffnet eine vorhandene Bilddatei</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Saves current image to disk file</source>
        <translation>Speichert das aktuelle Bild in einer Datei</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Saves current image with another file name</source>
        <translation>Speichert das aktuelle Bild unter einem anderen Namen</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Save A&amp;ll...</source>
        <translation>&amp;Alle speichern...</translation>
    </message>
    <message>
        <source>Saves all unsaved images</source>
        <translation>Speichert alle noch nicht gespeicherten Bilder</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>Prints current image</source>
        <translation>Druckt das aktuelle Bild</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Closes current image</source>
        <translation>Schließt das aktuelle Bild</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>Alle sch&amp;ließen</translation>
    </message>
    <message>
        <source>Closes all images</source>
        <translation>Schließt alle Bilder</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Exits the program</source>
        <translation>Beendet das Programm</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Beschriftungen</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>&amp;Beschriftungen</translation>
    </message>
    <message>
        <source>Shows or hides text labels on toolbar buttons</source>
        <translation>Blendet die Beschriftung der Schaltflächen in der Werkzeugleiste ein oder aus</translation>
    </message>
    <message>
        <source>Big Pixmaps</source>
        <translation>Große Symbole</translation>
    </message>
    <message>
        <source>&amp;Big Pixmaps</source>
        <translation>&amp;Große Symbole</translation>
    </message>
    <message>
        <source>Sets the size of pixmaps on toolbar buttons</source>
        <translation>Legt die Größe der Symbole in der Werkzeugleiste fest</translation>
    </message>
    <message>
        <source>Tooltips</source>
        <translation>Tooltips</translation>
    </message>
    <message>
        <source>&amp;Tooltips</source>
        <translation>&amp;Tooltips</translation>
    </message>
    <message>
        <source>Shows or hides tooltips on toolbar buttons</source>
        <translation>Blendet Tooltips für die Schaltflächen der Werkzeugleiste ein oder aus</translation>
    </message>
    <message>
        <source>Movable Toolbars</source>
        <translation>Verschiebbare Werkzeugleisten</translation>
    </message>
    <message>
        <source>&amp;Movable Toolbars</source>
        <translation>&amp;Verschiebbare Werkzeugleisten</translation>
    </message>
    <message>
        <source>Enables or disables toolbars movement</source>
        <translation>Erlaubt oder verhindert das Verschieben der Werkzeugleisten</translation>
    </message>
    <message>
        <source>Save Layout</source>
        <translation>Anordnung speichern</translation>
    </message>
    <message>
        <source>&amp;Save Layout</source>
        <translation>Anordnung &amp;speichern</translation>
    </message>
    <message>
        <source>Saves current window layout</source>
        <translation>Speichert die aktuelle Fensteranordnung</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Anordnung zurücksetzen</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>Anordnung &amp;zurücksetzen</translation>
    </message>
    <message>
        <source>Set default window layout</source>
        <translation>Stellt die Standardanordnung des Fensters wieder her</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Undoes last edit operation</source>
        <translation>Macht die letzte Änderung rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>R&amp;edo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Redoes last undone operation</source>
        <translation>Stellt die zuletzt rückgängig gemachte Änderung wieder her</translation>
    </message>
    <message>
        <source>Scroll</source>
        <translation>Verschieben</translation>
    </message>
    <message>
        <source>&amp;Scroll</source>
        <translation>&amp;Verschieben</translation>
    </message>
    <message>
        <source>Activates image free-hand scrolling</source>
        <translation>Schaltet das freie Verschieben des Bildes mit der Maus ein</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Verkleinern</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Ver&amp;kleinern</translation>
    </message>
    <message>
        <source>Zooms current image out</source>
        <translation>Zeigt das aktuelle Bild kleiner an</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Vergrößern</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Ver&amp;größern</translation>
    </message>
    <message>
        <source>Zooms current image in</source>
        <translation>Zeigt das aktuelle Bild größer an</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalieren</translation>
    </message>
    <message>
        <source>&amp;Scale</source>
        <translation>Sk&amp;alieren</translation>
    </message>
    <message>
        <source>Displays Scale dialog to set image scale value</source>
        <translation>Öffnet den Dialog zum Skalieren des Bildes</translation>
    </message>
    <message>
        <source>Horizontally</source>
        <translation>Horizontal</translation>
    </message>
    <message>
        <source>&amp;Horizontally...</source>
        <translation>&amp;Horizontal...</translation>
    </message>
    <message>
        <source>Vertically</source>
        <translation>Vertikal</translation>
    </message>
    <message>
        <source>&amp;Vertically...</source>
        <translation>&amp;Vertikal...</translation>
    </message>
    <message>
        <source>Proportionally</source>
        <translation>Proportional</translation>
    </message>
    <message>
        <source>&amp;Proportionally...</source>
        <translation>&amp;Proportional...</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Größe ändern</translation>
    </message>
    <message>
        <source>&amp;Resize...</source>
        <translation>&amp;Größe ändern...</translation>
    </message>
    <message>
        <source>Displays Resize dialog to set image size in pixels</source>
        <translation>Öffnet den Dialog zum Festlegen der Bildgröße in Pixeln</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Drehen</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>&amp;Drehen</translation>
    </message>
    <message>
        <source>Rotates the image</source>
        <translation>Dreht das Bild</translation>
    </message>
    <message>
        <source>90 degrees CCW</source>
        <translation>90 Grad nach links</translation>
    </message>
    <message>
        <source>9&amp;0 degrees CCW</source>
        <translation>90 Grad nach &amp;links</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees counter-clock-wise</source>
        <translation>Dreht das Bild um 90 Grad gegen den Uhrzeigersinn</translation>
    </message>
    <message>
        <source>90 degrees CW</source>
        <translation>90 Grad nach rechts</translation>
    </message>
    <message>
        <source>&amp;90 degrees CW</source>
        <translation>90 Grad nach &amp;rechts</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees clock-wise</source>
        <translation>Dreht das Bild um 90 Grad im Uhrzeigersinn</translation>
    </message>
    <message>
        <source>180 degrees</source>
        <translation>180 Grad</translation>
    </message>
    <message>
        <source>&amp;180 degrees</source>
        <translation>&amp;180 Grad</translation>
    </message>
    <message>
        <source>Rotates the image to 180 degrees</source>
        <translation>Dreht das Bild um 180 Grad</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Spiegeln</translation>
    </message>
    <message>
        <source>&amp;Flip</source>
        <translation>&amp;Spiegeln</translation>
    </message>
    <message>
        <source>Flips the image</source>
        <translation>Spiegelt das Bild</translation>
    </message>
    <message>
        <source>&amp;Horizontally</source>
        <translation>&amp;Horizontal</translation>
    </message>
    <message>
        <source>Flips the image horizontally (&quot;mirror on the wall&quot;)</source>
        <translation>Spiegelt das Bild horizontal („Spiegel an der Wand“)</translation>
    </message>
    <message>
        <source>&amp;Vertically</source>
        <translation>&amp;Vertikal</translation>
    </message>
    <message>
        <source>Flips the image vertically (&quot;mirror on the floor&quot;)</source>
        <translation>Spiegelt das Bild vertikal („Spiegel auf dem Boden“)</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertieren</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>&amp;Invertieren</translation>
    </message>
    <message>
        <source>Inverts image colors</source>
        <translation>Kehrt die Farben des Bildes um</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>&amp;Brightness...</source>
        <translation>&amp;Helligkeit...</translation>
    </message>
    <message>
        <source>Sets image brightness</source>
        <translation>Ändert die Helligkeit des Bildes</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>&amp;Contrast...</source>
        <translation>&amp;Kontrast...</translation>
    </message>
    <message>
        <source>Sets image contrast</source>
        <translation>Ändert den Kontrast des Bildes</translation>
    </message>
    <message>
        <source>Color Bit Depth</source>
        <translation>Farbtiefe</translation>
    </message>
    <message>
        <source>&amp;Color Bit Depth</source>
        <translation>&amp;Farbtiefe</translation>
    </message>
    <message>
        <source>Sets image color depth</source>
        <translation>Ändert die Farbtiefe des Bildes</translation>
    </message>
    <message>
        <source>1 bit</source>
        <translation>1 Bit</translation>
    </message>
    <message>
        <source>&amp;1 bit</source>
        <translation>&amp;1 Bit</translation>
    </message>
    <message>
        <source>Sets image color depth to 1 bit</source>
        <translation>Setzt die Farbtiefe des Bildes auf 1 Bit</translation>
    </message>
    <message>
        <source>8 bit</source>
        <translation>8 Bit</translation>
    </message>
    <message>
        <source>&amp;8 bit</source>
        <translation>&amp;8 Bit</translation>
    </message>
    <message>
        <source>Sets image color depth to 8 bit</source>
        <translation>Setzt die Farbtiefe des Bildes auf 8 Bit</translation>
    </message>
    <message>
        <source>32 bit</source>
        <translation>32 Bit</translation>
    </message>
    <message>
        <source>&amp;32 bit</source>
        <translation>&amp;32 Bit</translation>
    </message>
    <message>
        <source>Sets image color depth to 32 bit</source>
        <translation>Setzt die Farbtiefe des Bildes auf 32 Bit</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Zuschneiden</translation>
    </message>
    <message>
        <source>C&amp;rop</source>
        <translation>&amp;Zuschneiden</translation>
    </message>
    <message>
        <source>Creates a new image from the selection</source>
        <translation>Erzeugt aus der Auswahl ein neues Bild</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Eigenschaften</translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation>&amp;Eigenschaften...</translation>
    </message>
    <message>
        <source>Displays Properties dialog to set image properties</source>
        <translation>Zeigt die Eigenschaften des Bildes an</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Grafikeditor</translation>
    </message>
    <message>
        <source>&amp;Graphics Editor</source>
        <translation>&amp;Grafikeditor</translation>
    </message>
    <message>
        <source>Starts external graphics editor with the image</source>
        <translation>Öffnet das Bild in einem externen Grafikeditor</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Texterkennung</translation>
    </message>
    <message>
        <source>&amp;OCR</source>
        <translation>&amp;Texterkennung</translation>
    </message>
    <message>
        <source>Starts external Optical Character Recognition (OCR) program</source>
        <translation>Startet ein externes Programm zur Texterkennung (OCR)</translation>
    </message>
    <message>
        <source>Send by E-mail</source>
        <translation>Per E-Mail senden</translation>
    </message>
    <message>
        <source>&amp;Send by E-mail...</source>
        <translation>Per &amp;E-Mail senden...</translation>
    </message>
    <message>
        <source>Sends the image by E-mail</source>
        <translation>Sendet das Bild per E-Mail</translation>
    </message>
    <message>
        <source>Upload by FTP</source>
        <translation>Per FTP hochladen</translation>
    </message>
    <message>
        <source>&amp;Upload by FTP...</source>
        <translation>Per &amp;FTP hochladen...</translation>
    </message>
    <message>
        <source>Uploads the image to remote FTP server</source>
        <translation>Lädt das Bild auf einen FTP-Server hoch</translation>
    </message>
    <message>
        <source>Configure Tools</source>
        <translation>Werkzeuge einrichten</translation>
    </message>
    <message>
        <source>&amp;Configure Tools...</source>
        <translation>&amp;Werkzeuge einrichten...</translation>
    </message>
    <message>
        <source>Displays tools configuration dialog</source>
        <translation>Öffnet den Dialog zum Einrichten der Werkzeuge</translation>
    </message>
</context>
<context>
    <name>ImageManager</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>This operation cannot be undone or redone. Continue?</source>
        <translation>Dieser Vorgang kann weder rückgängig gemacht noch wiederholt werden. Fortfahren?</translation>
    </message>
    <message>
        <source>Error saving Undo/Redo information</source>
        <translation>Fehler beim Speichern der Angaben für Rückgängig und Wiederholen</translation>
    </message>
    <message>
        <source>Saving Undo/Redo information...</source>
        <translation>Angaben für Rückgängig und Wiederholen werden gespeichert...</translation>
    </message>
    <message>
        <source>Changing the image...</source>
        <translation>Bild wird geändert...</translation>
    </message>
    <message>
        <source>Rollback operation...</source>
        <translation>Vorgang wird zurückgenommen...</translation>
    </message>
    <message>
        <source>Undoing operation...</source>
        <translation>Vorgang wird rückgängig gemacht...</translation>
    </message>
    <message>
        <source>Redoing operation...</source>
        <translation>Vorgang wird wiederholt...</translation>
    </message>
    <message>
        <source>Open failed</source>
        <translation>Öffnen fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error opening file</source>
        <translation>Fehler beim Öffnen der Datei</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>Speichern fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error saving image: %1</source>
        <translation>Fehler beim Speichern des Bildes: %1</translation>
    </message>
    <message>
        <source>Image &apos;%1&apos; has been changed.
Do you want to save it?</source>
        <translation>Das Bild „%1“ wurde geändert.
Möchten Sie es speichern?</translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <translation>Möchten Sie das Bild speichern?</translation>
    </message>
    <message>
        <source>Image Depth 1 bit</source>
        <translation>Farbtiefe 1 Bit</translation>
    </message>
    <message>
        <source>Image Depth 8 bit</source>
        <translation>Farbtiefe 8 Bit</translation>
    </message>
    <message>
        <source>Image Depth 32 bit</source>
        <translation>Farbtiefe 32 Bit</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Invertieren</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Helligkeit</translation>
    </message>
    <message>
        <source>Set Brightness</source>
        <translation>Helligkeit einstellen</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Set Contrast</source>
        <translation>Kontrast einstellen</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CCW</source>
        <translation>Um 90 Grad nach links drehen</translation>
    </message>
    <message>
        <source>Rotate 180 degrees</source>
        <translation>Um 180 Grad drehen</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CW</source>
        <translation>Um 90 Grad nach rechts drehen</translation>
    </message>
    <message>
        <source>Flip Vertically</source>
        <translation>Vertikal spiegeln</translation>
    </message>
    <message>
        <source>Flip Horizontally</source>
        <translation>Horizontal spiegeln</translation>
    </message>
    <message>
        <source>Scale Proportionally</source>
        <translation>Proportional skalieren</translation>
    </message>
    <message>
        <source>Proportional Scale</source>
        <translation>Proportionaler Maßstab</translation>
    </message>
    <message>
        <source>Number to multiple actual image height and width on</source>
        <translation>Faktor, mit dem Höhe und Breite des Bildes multipliziert werden</translation>
    </message>
    <message>
        <source>Scale Vertically</source>
        <translation>Vertikal skalieren</translation>
    </message>
    <message>
        <source>Vertical Scale</source>
        <translation>Vertikaler Maßstab</translation>
    </message>
    <message>
        <source>Number to multiple actual image height on</source>
        <translation>Faktor, mit dem die Höhe des Bildes multipliziert wird</translation>
    </message>
    <message>
        <source>Scale Horizontally</source>
        <translation>Horizontal skalieren</translation>
    </message>
    <message>
        <source>Horizontal Scale</source>
        <translation>Horizontaler Maßstab</translation>
    </message>
    <message>
        <source>Number to multiple actual image width on</source>
        <translation>Faktor, mit dem die Breite des Bildes multipliziert wird</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>Laden fehlgeschlagen</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Fehler beim Laden der Datei</translation>
    </message>
    <message>
        <source>Could not load image
Not enough memory to load bitmap image
Do you want to save it?</source>
        <translation>Das Bild konnte nicht geladen werden
Der Arbeitsspeicher reicht für das Bild nicht aus
Möchten Sie es speichern?</translation>
    </message>
    <message>
        <source>Image Manager</source>
        <translation>Image Manager</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumente</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Effekte</translation>
    </message>
    <message>
        <source>Changes the image zoom</source>
        <translation>Ändert die Vergrößerung des Bildes</translation>
    </message>
    <message>
        <source>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Changes the image zoom.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Ändert die Vergrößerung des Bildes.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>&amp;Zoom</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>B&amp;ild</translation>
    </message>
    <message>
        <source>Image Manager Toolbar</source>
        <translation>Werkzeugleiste von Image Manager</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>Weitere Befehle</translation>
    </message>
    <message>
        <source>Page 1 of %1</source>
        <translation>Seite 1 von %1</translation>
    </message>
    <message>
        <source>%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. Save?</source>
        <translation>%1 enthält %2 Bilder, von denen nicht alle geöffnet sind. Was nicht geöffnet ist, kann nicht erhalten werden. Speichern?</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Werkzeuge</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Druckt...</translation>
    </message>
</context>
<context>
    <name>MailForm</name>
    <message>
        <source>Send Image By E-mail</source>
        <translation>Bild per E-Mail senden</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Server:</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Server</translation>
    </message>
    <message>
        <source>Login:</source>
        <translation>Anmeldename:</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Anmeldename</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Port</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Passwort:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Passwort</translation>
    </message>
    <message>
        <source>From:</source>
        <translation>Von:</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>An:</translation>
    </message>
    <message>
        <source>To</source>
        <translation>An</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Betreff:</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Betreff</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Nachricht</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Speichern unter ...</translation>
    </message>
    <message>
        <source>Delete After Send</source>
        <translation>Nach dem Senden löschen</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Senden</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Kein Vorgang aktiv</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Image must be saved before sending</source>
        <translation>Das Bild muss vor dem Senden gespeichert werden</translation>
    </message>
    <message>
        <source>Looking up mail servers</source>
        <translation>Mailserver werden gesucht</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ist bereits vorhanden.
Möchten Sie die Datei ersetzen?</translation>
    </message>
</context>
<context>
    <name>Smtp</name>
    <message>
        <source>The attached file cannot be read.</source>
        <translation>Die angehängte Datei kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>The domain %1 takes no mail.</source>
        <translation>Die Domain %1 nimmt keine Mail an.</translation>
    </message>
    <message>
        <source>Connecting to:</source>
        <translation>Verbindung wird aufgebaut zu:</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Verbunden mit %1</translation>
    </message>
    <message>
        <source>The mail server offers no login that this program knows.</source>
        <translation>Der Mailserver bietet keine Anmeldung an, die dieses Programm beherrscht.</translation>
    </message>
    <message>
        <source>Authentication...</source>
        <translation>Anmeldung ...</translation>
    </message>
    <message>
        <source>Sending mail...</source>
        <translation>Mail wird gesendet ...</translation>
    </message>
    <message>
        <source>Message sent</source>
        <translation>Nachricht gesendet</translation>
    </message>
    <message>
        <source>Unexpected reply from SMTP server:

</source>
        <translation>Unerwartete Antwort des SMTP-Servers:

</translation>
    </message>
    <message>
        <source>Mail system error</source>
        <translation>Fehler des Mailsystems</translation>
    </message>
    <message>
        <source>The connection to the mail server is lost.</source>
        <translation>Die Verbindung zum Mailserver ist abgebrochen.</translation>
    </message>
    <message>
        <source>No connection to %1.</source>
        <translation>Keine Verbindung zu %1.</translation>
    </message>
    <message>
        <source>Message not sent</source>
        <translation>Nachricht nicht gesendet</translation>
    </message>
    <message>
        <source>The mail server does not answer.</source>
        <translation>Der Mailserver antwortet nicht.</translation>
    </message>
    <message>
        <source>A login is sent to no server but the one that is filled in.
Fill in &quot;Server&quot;, or empty &quot;Login&quot;.</source>
        <translation>Anmeldedaten gehen nur an den eingetragenen Server.
Tragen Sie „Server“ ein oder leeren Sie „Anmeldename“.</translation>
    </message>
    <message>
        <source>This address cannot be used:
%1</source>
        <translation>Diese Adresse kann nicht verwendet werden:
%1</translation>
    </message>
    <message>
        <source>The mail servers of %1 cannot be looked up at present.</source>
        <translation>Die Mailserver von %1 lassen sich zurzeit nicht ermitteln.</translation>
    </message>
</context>
</TS>
