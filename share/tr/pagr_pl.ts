<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>FindBar</name>
    <message>
        <source>&amp;Find:</source>
        <translation>&amp;Szukaj:</translation>
    </message>
    <message>
        <source>Text to find in the page</source>
        <translation>Tekst szukany na stronie</translation>
    </message>
    <message>
        <source>&amp;Previous</source>
        <translation>&amp;Poprzednie</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Następne</translation>
    </message>
    <message>
        <source>Not found</source>
        <translation>Nie znaleziono</translation>
    </message>
</context>
<context>
    <name>HelpPages</name>
    <message>
        <source>There is no help page &quot;%1&quot;.</source>
        <translation>Nie ma strony pomocy „%1”.</translation>
    </message>
    <message>
        <source>The help pages are not installed: there is no directory &quot;%1&quot;.</source>
        <translation>Strony pomocy nie są zainstalowane: nie ma katalogu „%1”.</translation>
    </message>
    <message>
        <source>Page not found</source>
        <translation>Nie znaleziono strony</translation>
    </message>
</context>
<context>
    <name>HelpWindow</name>
    <message>
        <source>Help page</source>
        <translation>Strona pomocy</translation>
    </message>
    <message>
        <source>The link to %1 leads out of the help and is not followed.</source>
        <translation>Odsyłacz do %1 prowadzi poza pomoc i nie zostanie otwarty.</translation>
    </message>
    <message>
        <source>Contents</source>
        <translation>Spis treści</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Polecenia</translation>
    </message>
    <message>
        <source>&amp;Back</source>
        <translation>&amp;Wstecz</translation>
    </message>
    <message>
        <source>F&amp;orward</source>
        <translation>&amp;Dalej</translation>
    </message>
    <message>
        <source>&amp;Home</source>
        <translation>Początek (&amp;H)</translation>
    </message>
    <message>
        <source>F&amp;ind</source>
        <translation>Zn&amp;ajdź</translation>
    </message>
    <message>
        <source>&amp;Larger</source>
        <translation>Większ&amp;y tekst</translation>
    </message>
    <message>
        <source>&amp;Smaller</source>
        <translation>&amp;Mniejszy tekst</translation>
    </message>
    <message>
        <source>Prin&amp;t</source>
        <translation>Dr&amp;ukuj</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>&amp;Zamknij</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>%1 - Help</source>
        <translation>%1 - Pomoc</translation>
    </message>
</context>
</TS>
