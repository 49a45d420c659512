<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>FindBar</name>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Text to find in the page</source>
        <translation>Text, der auf der Seite gesucht wird</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Vorheriges</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Nächstes</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nicht gefunden</translation>
    </message>
</context>
<context>
    <name>HelpPages</name>
    <message>
        <source>There is no help page &quot;%1&quot;.</source>
        <translation>Es gibt keine Hilfeseite „%1“.</translation>
    </message>
    <message>
        <source>The help pages are not installed: there is no directory &quot;%1&quot;.</source>
        <translation>Die Hilfeseiten sind nicht installiert: Es gibt kein Verzeichnis „%1“.</translation>
    </message>
    <message>
        <source>Page not found</source>
        <translation>Seite nicht gefunden</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help page</source>
        <translation>Hilfeseite</translation>
    </message>
    <message>
        <source>The link to %1 leads out of the help and is not followed.</source>
        <translation>Der Verweis auf %1 führt aus der Hilfe hinaus und wird nicht verfolgt.</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Inhalt</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Zurück</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>V&amp;or</translation>
    </message>
    <message>
        <source>&amp;Home</source>
        <translation>&amp;Übersicht</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>Su&amp;chen</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>&amp;Größer</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>&amp;Kleiner</translation>
    </message>
    <message>
        <source>Prin&amp;t</source>
        <translation>&amp;Drucken</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Schl&amp;ießen</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 – Hilfe</translation>
    </message>
</context>
</TS>
