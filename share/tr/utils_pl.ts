<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>FtpMachine</name>
    <message>
        <source>Invalid character in name</source>
        <translation>Niedozwolony znak w nazwie</translation>
    </message>
    <message>
        <source>Host %1 not found</source>
        <translation>Nie znaleziono hosta %1</translation>
    </message>
    <message>
        <source>Connection refused to host %1</source>
        <translation>Host %1 odmówił połączenia</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Połączenie z %1 zamknięte</translation>
    </message>
    <message>
        <source>The local file has changed</source>
        <translation>Plik lokalny się zmienił</translation>
    </message>
    <message>
        <source>Connecting to host failed:
%1</source>
        <translation>Nie udało się połączyć z hostem:
%1</translation>
    </message>
    <message>
        <source>Login failed:
%1</source>
        <translation>Nie udało się zalogować:
%1</translation>
    </message>
    <message>
        <source>Uploading file failed:
%1</source>
        <translation>Nie udało się wysłać pliku:
%1</translation>
    </message>
    <message>
        <source>Connection refused for data connection</source>
        <translation>Odmówiono połączenia danych</translation>
    </message>
    <message>
        <source>Data connection closed</source>
        <translation>Połączenie danych zamknięte</translation>
    </message>
</context>
<context>
    <name>ImagePropertiesDialog</name>
    <message>
        <source>Image Properties</source>
        <translation>Właściwości obrazu</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Szerokość [piksele]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Wysokość [piksele]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Głębia bitowa</translation>
    </message>
    <message>
        <source>Colors in Palette</source>
        <translation>Kolory w palecie</translation>
    </message>
    <message>
        <source>Grayscale</source>
        <translation>Odcienie szarości</translation>
    </message>
    <message>
        <source>Yes</source>
        <translation>Tak</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nie</translation>
    </message>
    <message>
        <source>Bytes (not including palette)</source>
        <translation>Bajty (bez palety)</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Bajty na wiersz</translation>
    </message>
    <message>
        <source>Zoom coefficient</source>
        <translation>Współczynnik powiększenia</translation>
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
        <translation>Właściwości obrazu</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Właściwości</translation>
    </message>
    <message>
        <source>Width [pixels]</source>
        <translation>Szerokość [piksele]</translation>
    </message>
    <message>
        <source>Height [pixels]</source>
        <translation>Wysokość [piksele]</translation>
    </message>
    <message>
        <source>Bit Depth</source>
        <translation>Głębia bitowa</translation>
    </message>
    <message>
        <source>Colors In Pallette</source>
        <translation>Kolory w palecie</translation>
    </message>
    <message>
        <source>GrayScale</source>
        <translation>Odcienie szarości</translation>
    </message>
    <message>
        <source>Bytes</source>
        <translation>Bajty</translation>
    </message>
    <message>
        <source>Bytes per line</source>
        <translation>Bajty na wiersz</translation>
    </message>
    <message>
        <source>Zoom Coefficient</source>
        <translation>Współczynnik powiększenia</translation>
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
        <translation>Tak</translation>
    </message>
    <message>
        <source>No</source>
        <translation>Nie</translation>
    </message>
</context>
<context>
    <name>Q3ScrollView</name>
    <message>
        <source>Horizontal scroll bar</source>
        <translation>Poziomy pasek przewijania</translation>
    </message>
    <message>
        <source>Vertical scroll bar</source>
        <translation>Pionowy pasek przewijania</translation>
    </message>
</context>
<context>
    <name>Q3UrlOperator</name>
    <message>
        <source>The protocol `%1&apos; is not supported</source>
        <translation>Protokół „%1” nie jest obsługiwany</translation>
    </message>
</context>
<context>
    <name>ResizeDialog</name>
    <message>
        <source>Resize</source>
        <translation>Zmień rozmiar</translation>
    </message>
    <message>
        <source>Pixel Dimensions</source>
        <translation>Wymiary w pikselach</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Szerokość</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Wysokość</translation>
    </message>
    <message>
        <source>Invalid Number</source>
        <translation>Nieprawidłowa liczba</translation>
    </message>
    <message>
        <source>Check if Width and Height
contain non-digit characters
or more than 5 digits.</source>
        <translation>Sprawdź, czy szerokość i wysokość
nie zawierają znaków innych niż cyfry
ani więcej niż 5 cyfr.</translation>
    </message>
    <message>
        <source>Image side is too small</source>
        <translation>Bok obrazu jest za mały</translation>
    </message>
    <message>
        <source>Set Width and Height to 10 pixels or more.
</source>
        <translation>Podaj szerokość i wysokość co najmniej 10 pikseli.
</translation>
    </message>
    <message>
        <source>Resulting size is too big</source>
        <translation>Wynikowy rozmiar jest za duży</translation>
    </message>
    <message>
        <source>Decrease Width and Height
to fit the image in computer&apos;s memory.</source>
        <translation>Zmniejsz szerokość i wysokość,
aby obraz zmieścił się w pamięci komputera.</translation>
    </message>
</context>
<context>
    <name>SimplePreviewDialog</name>
    <message>
        <source>Preview</source>
        <translation>Podgląd</translation>
    </message>
    <message>
        <source>Page of %1 x %2 pixels, shown at %3 x %4.</source>
        <translation>Strona o wymiarach %1 x %2 pikseli, pokazana jako %3 x %4.</translation>
    </message>
</context>
<context>
    <name>UrlCopy</name>
    <message>
        <source>Could not open
%1</source>
        <translation>Nie udało się otworzyć
%1</translation>
    </message>
    <message>
        <source>Host %1 found</source>
        <translation>Znaleziono host %1</translation>
    </message>
    <message>
        <source>Connected to host %1</source>
        <translation>Połączono z hostem %1</translation>
    </message>
    <message>
        <source>Connection to %1 closed</source>
        <translation>Połączenie z %1 zamknięte</translation>
    </message>
    <message>
        <source>Could not remove file or directory
%1</source>
        <translation>Nie udało się usunąć pliku lub katalogu
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
        <translation>Anuluj</translation>
    </message>
</context>
</TS>
