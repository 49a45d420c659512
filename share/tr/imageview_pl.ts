<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>ImageDocument</name>
    <message>
        <source>Error saving TIFF image!</source>
        <translation>Błąd podczas zapisywania obrazu TIFF!</translation>
    </message>
    <message>
        <source>Multipage image doesn&apos;t supported with format &lt;%1&gt;</source>
        <translation>Format &lt;%1&gt; nie obsługuje obrazów wielostronicowych</translation>
    </message>
    <message>
        <source>Can not open file for write: 
%1</source>
        <translation>Nie można otworzyć pliku do zapisu: 
%1</translation>
    </message>
    <message>
        <source>The pages that are not open cannot be kept.</source>
        <translation>Stron, które nie są otwarte, nie można zachować.</translation>
    </message>
    <message>
        <source>This is no plain file.</source>
        <translation>To nie jest zwykły plik.</translation>
    </message>
    <message>
        <source>A file of this format cannot be larger than %1.</source>
        <extracomment>%1 is a size in bytes, such as &quot;4 GiB&quot;</extracomment>
        <translation>Plik w tym formacie nie może być większy niż %1.</translation>
    </message>
    <message>
        <source>An image of %1 x %2 pixels cannot be saved in format &lt;%3&gt; at its size.</source>
        <translation>Obrazu o wymiarach %1 x %2 pikseli nie można zapisać w formacie &lt;%3&gt; w jego rozmiarze.</translation>
    </message>
</context>
<context>
    <name>ImageFileDialog</name>
    <message>
        <source>Can&apos;t append &apos;%1&apos; extension, file name is too long.</source>
        <translation>Nie można dodać rozszerzenia „%1”, nazwa pliku jest za długa.</translation>
    </message>
    <message>
        <source>File &apos;%1&apos; already exists.
Do you want to replace it?</source>
        <translation>Plik „%1” już istnieje.
Czy chcesz go zastąpić?</translation>
    </message>
</context>
<context>
    <name>ImageFormat</name>
    <message>
        <source>All graphic files</source>
        <translation>Wszystkie pliki graficzne</translation>
    </message>
    <message>
        <source>All files</source>
        <translation>Wszystkie pliki</translation>
    </message>
    <message>
        <source>Tagged Image File Format</source>
        <translation>Tagged Image File Format</translation>
    </message>
    <message>
        <source>Multipage TIFF</source>
        <translation>TIFF wielostronicowy</translation>
    </message>
    <message>
        <source>Windows Bitmaps</source>
        <translation>Mapy bitowe Windows</translation>
    </message>
    <message>
        <source>Portable Network Graphics</source>
        <translation>Portable Network Graphics</translation>
    </message>
    <message>
        <source>Portable Bitmap Monochrome</source>
        <translation>Portable Bitmap, monochromatyczny</translation>
    </message>
    <message>
        <source>Portable Bitmap Grayscale</source>
        <translation>Portable Bitmap, odcienie szarości</translation>
    </message>
    <message>
        <source>Portable Bitmap Colorful</source>
        <translation>Portable Bitmap, kolorowy</translation>
    </message>
</context>
<context>
    <name>ImageView</name>
    <message>
        <source>Page</source>
        <translation>Strona</translation>
    </message>
    <message>
        <source>Page picture</source>
        <translation>Obraz strony</translation>
    </message>
    <message>
        <source>No image load</source>
        <translation>Nie wczytano obrazu</translation>
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
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Save File As</source>
        <translation>Zapisz plik jako</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Zapisz wszystkie</translation>
    </message>
    <message>
        <source>Choose Type</source>
        <translation>Wybierz typ</translation>
    </message>
    <message>
        <source>Please, choose the type explicitly.</source>
        <translation>Proszę jawnie wybrać typ.</translation>
    </message>
    <message>
        <source>Unsupported Format</source>
        <translation>Nieobsługiwany format</translation>
    </message>
    <message>
        <source>Image format %1 is not supported!</source>
        <translation>Format obrazu %1 nie jest obsługiwany!</translation>
    </message>
    <message>
        <source>Save in:</source>
        <translation>Zapisz w:</translation>
    </message>
</context>
<context>
    <name>SaveAllFileDialog</name>
    <message>
        <source>Autosave:</source>
        <translation>Automatyczny zapis:</translation>
    </message>
    <message>
        <source>Use as basename for untitled images</source>
        <translation>Użyj jako nazwy bazowej obrazów bez tytułu</translation>
    </message>
</context>
</TS>
