<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl" sourcelanguage="en">
<context>
    <name>ConfigureToolsDialog</name>
    <message>
        <source>Configure Tools</source>
        <translation>Konfiguruj narzędzia</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Edytor graficzny</translation>
    </message>
    <message>
        <source>Graphics Editor Command:</source>
        <translation>Polecenie edytora graficznego:</translation>
    </message>
    <message>
        <source>Graphics Editor Input &lt;BMP&gt;:</source>
        <translation>Wejście edytora graficznego &lt;BMP&gt;:</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Rozpoznawanie tekstu</translation>
    </message>
    <message>
        <source>OCR Command:</source>
        <translation>Polecenie rozpoznawania tekstu:</translation>
    </message>
    <message>
        <source>OCR Input &lt;PBM&gt;:</source>
        <translation>Wejście rozpoznawania tekstu &lt;PBM&gt;:</translation>
    </message>
    <message>
        <source>OCR Output / Text Editor Input &lt;TXT&gt;):</source>
        <translation>Wyjście rozpoznawania / wejście edytora tekstu &lt;TXT&gt;:</translation>
    </message>
    <message>
        <source>Text Editor Command:</source>
        <translation>Polecenie edytora tekstu:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
</context>
<context>
    <name>FtpForm</name>
    <message>
        <source>Upload Image by FTP</source>
        <translation>Wysyłanie obrazu przez FTP</translation>
    </message>
    <message>
        <source>Remote Host:</source>
        <translation>Zdalny host:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Port:</translation>
    </message>
    <message>
        <source>Remote Path:</source>
        <translation>Zdalna ścieżka:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>Nazwa użytkownika:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>Hasło:</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Zapisz jako...</translation>
    </message>
    <message>
        <source>&amp;Upload</source>
        <translation>&amp;Wyślij</translation>
    </message>
    <message>
        <source>Delete after Upload</source>
        <translation>Usuń po wysłaniu</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>Postęp</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Brak operacji w toku</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>BŁĄD</translation>
    </message>
    <message>
        <source>Read: %1</source>
        <translation>Odczyt: %1</translation>
    </message>
    <message>
        <source>Write: %1</source>
        <translation>Zapis: %1</translation>
    </message>
</context>
<context>
    <name>Global String Table</name>
    <message>
        <source>New</source>
        <translation>Nowy</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>&amp;Nowy...</translation>
    </message>
    <message>
        <source>Creates new empty image</source>
        <translation>Tworzy nowy, pusty obraz</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Otwórz</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>&amp;Otwórz...</translation>
    </message>
    <message>
        <source>Opens an existing image file</source>
        <translation>Otwiera istniejący plik obrazu</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Zapisz</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Zapisz</translation>
    </message>
    <message>
        <source>Saves current image to disk file</source>
        <translation>Zapisuje bieżący obraz w pliku</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Zapisz jako</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Zapisz &amp;jako...</translation>
    </message>
    <message>
        <source>Saves current image with another file name</source>
        <translation>Zapisuje bieżący obraz pod inną nazwą</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Zapisz wszystkie</translation>
    </message>
    <message>
        <source>Save A&amp;ll...</source>
        <translation>Zapisz &amp;wszystkie...</translation>
    </message>
    <message>
        <source>Saves all unsaved images</source>
        <translation>Zapisuje wszystkie niezapisane obrazy</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drukuj</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>&amp;Drukuj</translation>
    </message>
    <message>
        <source>Prints current image</source>
        <translation>Drukuje bieżący obraz</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>Za&amp;mknij</translation>
    </message>
    <message>
        <source>Closes current image</source>
        <translation>Zamyka bieżący obraz</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>Zamknij w&amp;szystkie</translation>
    </message>
    <message>
        <source>Closes all images</source>
        <translation>Zamyka wszystkie obrazy</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Zakończ</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>Za&amp;kończ</translation>
    </message>
    <message>
        <source>Exits the program</source>
        <translation>Kończy działanie programu</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>Etykiety</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>&amp;Etykiety</translation>
    </message>
    <message>
        <source>Shows or hides text labels on toolbar buttons</source>
        <translation>Pokazuje lub ukrywa etykiety przycisków paska narzędzi</translation>
    </message>
    <message>
        <source>Big Pixmaps</source>
        <translation>Duże ikony</translation>
    </message>
    <message>
        <source>&amp;Big Pixmaps</source>
        <translation>&amp;Duże ikony</translation>
    </message>
    <message>
        <source>Sets the size of pixmaps on toolbar buttons</source>
        <translation>Ustawia rozmiar ikon na pasku narzędzi</translation>
    </message>
    <message>
        <source>Tooltips</source>
        <translation>Podpowiedzi</translation>
    </message>
    <message>
        <source>&amp;Tooltips</source>
        <translation>&amp;Podpowiedzi</translation>
    </message>
    <message>
        <source>Shows or hides tooltips on toolbar buttons</source>
        <translation>Pokazuje lub ukrywa podpowiedzi przycisków paska narzędzi</translation>
    </message>
    <message>
        <source>Movable Toolbars</source>
        <translation>Ruchome paski narzędzi</translation>
    </message>
    <message>
        <source>&amp;Movable Toolbars</source>
        <translation>&amp;Ruchome paski narzędzi</translation>
    </message>
    <message>
        <source>Enables or disables toolbars movement</source>
        <translation>Zezwala na przesuwanie pasków narzędzi lub je blokuje</translation>
    </message>
    <message>
        <source>Save Layout</source>
        <translation>Zapisz układ</translation>
    </message>
    <message>
        <source>&amp;Save Layout</source>
        <translation>&amp;Zapisz układ</translation>
    </message>
    <message>
        <source>Saves current window layout</source>
        <translation>Zapisuje bieżący układ okna</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>Przywróć układ</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>&amp;Przywróć układ</translation>
    </message>
    <message>
        <source>Set default window layout</source>
        <translation>Przywraca domyślny układ okna</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Cofnij</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>&amp;Cofnij</translation>
    </message>
    <message>
        <source>Undoes last edit operation</source>
        <translation>Cofa ostatnią operację</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Ponów</translation>
    </message>
    <message>
        <source>R&amp;edo</source>
        <translation>&amp;Ponów</translation>
    </message>
    <message>
        <source>Redoes last undone operation</source>
        <translation>Ponawia ostatnio cofniętą operację</translation>
    </message>
    <message>
        <source>Scroll</source>
        <translation>Przesuwanie</translation>
    </message>
    <message>
        <source>&amp;Scroll</source>
        <translation>P&amp;rzesuwanie</translation>
    </message>
    <message>
        <source>Activates image free-hand scrolling</source>
        <translation>Włącza swobodne przesuwanie obrazu myszą</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>Pomniejsz</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>Po&amp;mniejsz</translation>
    </message>
    <message>
        <source>Zooms current image out</source>
        <translation>Pomniejsza widok bieżącego obrazu</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>Powiększ</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>Po&amp;większ</translation>
    </message>
    <message>
        <source>Zooms current image in</source>
        <translation>Powiększa widok bieżącego obrazu</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skaluj</translation>
    </message>
    <message>
        <source>&amp;Scale</source>
        <translation>&amp;Skaluj</translation>
    </message>
    <message>
        <source>Displays Scale dialog to set image scale value</source>
        <translation>Wyświetla okno skalowania obrazu</translation>
    </message>
    <message>
        <source>Horizontally</source>
        <translation>W poziomie</translation>
    </message>
    <message>
        <source>&amp;Horizontally...</source>
        <translation>W &amp;poziomie...</translation>
    </message>
    <message>
        <source>Vertically</source>
        <translation>W pionie</translation>
    </message>
    <message>
        <source>&amp;Vertically...</source>
        <translation>W p&amp;ionie...</translation>
    </message>
    <message>
        <source>Proportionally</source>
        <translation>Proporcjonalnie</translation>
    </message>
    <message>
        <source>&amp;Proportionally...</source>
        <translation>P&amp;roporcjonalnie...</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>Zmień rozmiar</translation>
    </message>
    <message>
        <source>&amp;Resize...</source>
        <translation>&amp;Zmień rozmiar...</translation>
    </message>
    <message>
        <source>Displays Resize dialog to set image size in pixels</source>
        <translation>Wyświetla okno zmiany rozmiaru obrazu w pikselach</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>Obróć</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>&amp;Obróć</translation>
    </message>
    <message>
        <source>Rotates the image</source>
        <translation>Obraca obraz</translation>
    </message>
    <message>
        <source>90 degrees CCW</source>
        <translation>90 stopni w lewo</translation>
    </message>
    <message>
        <source>9&amp;0 degrees CCW</source>
        <translation>90 stopni w &amp;lewo</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees counter-clock-wise</source>
        <translation>Obraca obraz o 90 stopni przeciwnie do ruchu wskazówek zegara</translation>
    </message>
    <message>
        <source>90 degrees CW</source>
        <translation>90 stopni w prawo</translation>
    </message>
    <message>
        <source>&amp;90 degrees CW</source>
        <translation>90 stopni w &amp;prawo</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees clock-wise</source>
        <translation>Obraca obraz o 90 stopni zgodnie z ruchem wskazówek zegara</translation>
    </message>
    <message>
        <source>180 degrees</source>
        <translation>180 stopni</translation>
    </message>
    <message>
        <source>&amp;180 degrees</source>
        <translation>&amp;180 stopni</translation>
    </message>
    <message>
        <source>Rotates the image to 180 degrees</source>
        <translation>Obraca obraz o 180 stopni</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>Odbij</translation>
    </message>
    <message>
        <source>&amp;Flip</source>
        <translation>O&amp;dbij</translation>
    </message>
    <message>
        <source>Flips the image</source>
        <translation>Tworzy lustrzane odbicie obrazu</translation>
    </message>
    <message>
        <source>&amp;Horizontally</source>
        <translation>W &amp;poziomie</translation>
    </message>
    <message>
        <source>Flips the image horizontally (&quot;mirror on the wall&quot;)</source>
        <translation>Odbija obraz w poziomie („lustro na ścianie”)</translation>
    </message>
    <message>
        <source>&amp;Vertically</source>
        <translation>W p&amp;ionie</translation>
    </message>
    <message>
        <source>Flips the image vertically (&quot;mirror on the floor&quot;)</source>
        <translation>Odbija obraz w pionie („lustro na podłodze”)</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Odwróć kolory</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>Od&amp;wróć kolory</translation>
    </message>
    <message>
        <source>Inverts image colors</source>
        <translation>Odwraca kolory obrazu</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Jasność</translation>
    </message>
    <message>
        <source>&amp;Brightness...</source>
        <translation>&amp;Jasność...</translation>
    </message>
    <message>
        <source>Sets image brightness</source>
        <translation>Ustawia jasność obrazu</translation>
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
        <translation>Ustawia kontrast obrazu</translation>
    </message>
    <message>
        <source>Color Bit Depth</source>
        <translation>Głębia kolorów</translation>
    </message>
    <message>
        <source>&amp;Color Bit Depth</source>
        <translation>&amp;Głębia kolorów</translation>
    </message>
    <message>
        <source>Sets image color depth</source>
        <translation>Ustawia głębię kolorów obrazu</translation>
    </message>
    <message>
        <source>1 bit</source>
        <translation>1 bit</translation>
    </message>
    <message>
        <source>&amp;1 bit</source>
        <translation>&amp;1 bit</translation>
    </message>
    <message>
        <source>Sets image color depth to 1 bit</source>
        <translation>Ustawia głębię kolorów obrazu na 1 bit</translation>
    </message>
    <message>
        <source>8 bit</source>
        <translation>8 bitów</translation>
    </message>
    <message>
        <source>&amp;8 bit</source>
        <translation>&amp;8 bitów</translation>
    </message>
    <message>
        <source>Sets image color depth to 8 bit</source>
        <translation>Ustawia głębię kolorów obrazu na 8 bitów</translation>
    </message>
    <message>
        <source>32 bit</source>
        <translation>32 bity</translation>
    </message>
    <message>
        <source>&amp;32 bit</source>
        <translation>&amp;32 bity</translation>
    </message>
    <message>
        <source>Sets image color depth to 32 bit</source>
        <translation>Ustawia głębię kolorów obrazu na 32 bity</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>Przytnij</translation>
    </message>
    <message>
        <source>C&amp;rop</source>
        <translation>&amp;Przytnij</translation>
    </message>
    <message>
        <source>Creates a new image from the selection</source>
        <translation>Tworzy nowy obraz z zaznaczenia</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>Właściwości</translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation>Właściwoś&amp;ci...</translation>
    </message>
    <message>
        <source>Displays Properties dialog to set image properties</source>
        <translation>Wyświetla właściwości obrazu</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>Edytor graficzny</translation>
    </message>
    <message>
        <source>&amp;Graphics Editor</source>
        <translation>Edytor &amp;graficzny</translation>
    </message>
    <message>
        <source>Starts external graphics editor with the image</source>
        <translation>Otwiera obraz w zewnętrznym edytorze graficznym</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>Rozpoznawanie tekstu</translation>
    </message>
    <message>
        <source>&amp;OCR</source>
        <translation>&amp;Rozpoznawanie tekstu</translation>
    </message>
    <message>
        <source>Starts external Optical Character Recognition (OCR) program</source>
        <translation>Uruchamia zewnętrzny program do rozpoznawania tekstu (OCR)</translation>
    </message>
    <message>
        <source>Send by E-mail</source>
        <translation>Wyślij e-mailem</translation>
    </message>
    <message>
        <source>&amp;Send by E-mail...</source>
        <translation>&amp;Wyślij e-mailem...</translation>
    </message>
    <message>
        <source>Sends the image by E-mail</source>
        <translation>Wysyła obraz pocztą e-mail</translation>
    </message>
    <message>
        <source>Upload by FTP</source>
        <translation>Wyślij przez FTP</translation>
    </message>
    <message>
        <source>&amp;Upload by FTP...</source>
        <translation>Wyślij przez &amp;FTP...</translation>
    </message>
    <message>
        <source>Uploads the image to remote FTP server</source>
        <translation>Wysyła obraz na zdalny serwer FTP</translation>
    </message>
    <message>
        <source>Configure Tools</source>
        <translation>Konfiguruj narzędzia</translation>
    </message>
    <message>
        <source>&amp;Configure Tools...</source>
        <translation>&amp;Konfiguruj narzędzia...</translation>
    </message>
    <message>
        <source>Displays tools configuration dialog</source>
        <translation>Wyświetla okno konfiguracji narzędzi</translation>
    </message>
</context>
<context>
    <name>ImageManager</name>
    <message>
        <source>Warning</source>
        <translation>Ostrzeżenie</translation>
    </message>
    <message>
        <source>This operation cannot be undone or redone. Continue?</source>
        <translation>Tej operacji nie będzie można cofnąć ani ponowić. Kontynuować?</translation>
    </message>
    <message>
        <source>Error saving Undo/Redo information</source>
        <translation>Błąd podczas zapisywania informacji do cofania i ponawiania</translation>
    </message>
    <message>
        <source>Saving Undo/Redo information...</source>
        <translation>Zapisywanie informacji do cofania i ponawiania...</translation>
    </message>
    <message>
        <source>Changing the image...</source>
        <translation>Zmienianie obrazu...</translation>
    </message>
    <message>
        <source>Rollback operation...</source>
        <translation>Wycofywanie operacji...</translation>
    </message>
    <message>
        <source>Undoing operation...</source>
        <translation>Cofanie operacji...</translation>
    </message>
    <message>
        <source>Redoing operation...</source>
        <translation>Ponawianie operacji...</translation>
    </message>
    <message>
        <source>Open failed</source>
        <translation>Otwieranie nie powiodło się</translation>
    </message>
    <message>
        <source>Error opening file</source>
        <translation>Błąd podczas otwierania pliku</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>Zapisywanie nie powiodło się</translation>
    </message>
    <message>
        <source>Error saving image: %1</source>
        <translation>Błąd podczas zapisywania obrazu: %1</translation>
    </message>
    <message>
        <source>Image &apos;%1&apos; has been changed.
Do you want to save it?</source>
        <translation>Obraz „%1” został zmieniony.
Czy chcesz go zapisać?</translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <translation>Czy chcesz zapisać obraz?</translation>
    </message>
    <message>
        <source>Image Depth 1 bit</source>
        <translation>Głębia kolorów 1 bit</translation>
    </message>
    <message>
        <source>Image Depth 8 bit</source>
        <translation>Głębia kolorów 8 bitów</translation>
    </message>
    <message>
        <source>Image Depth 32 bit</source>
        <translation>Głębia kolorów 32 bity</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>Odwróć kolory</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>Jasność</translation>
    </message>
    <message>
        <source>Set Brightness</source>
        <translation>Ustaw jasność</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>Kontrast</translation>
    </message>
    <message>
        <source>Set Contrast</source>
        <translation>Ustaw kontrast</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CCW</source>
        <translation>Obróć o 90 stopni w lewo</translation>
    </message>
    <message>
        <source>Rotate 180 degrees</source>
        <translation>Obróć o 180 stopni</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CW</source>
        <translation>Obróć o 90 stopni w prawo</translation>
    </message>
    <message>
        <source>Flip Vertically</source>
        <translation>Odbij w pionie</translation>
    </message>
    <message>
        <source>Flip Horizontally</source>
        <translation>Odbij w poziomie</translation>
    </message>
    <message>
        <source>Scale Proportionally</source>
        <translation>Skaluj proporcjonalnie</translation>
    </message>
    <message>
        <source>Proportional Scale</source>
        <translation>Skala proporcjonalna</translation>
    </message>
    <message>
        <source>Number to multiple actual image height and width on</source>
        <translation>Liczba, przez którą zostaną pomnożone wysokość i szerokość obrazu</translation>
    </message>
    <message>
        <source>Scale Vertically</source>
        <translation>Skaluj w pionie</translation>
    </message>
    <message>
        <source>Vertical Scale</source>
        <translation>Skala pionowa</translation>
    </message>
    <message>
        <source>Number to multiple actual image height on</source>
        <translation>Liczba, przez którą zostanie pomnożona wysokość obrazu</translation>
    </message>
    <message>
        <source>Scale Horizontally</source>
        <translation>Skaluj w poziomie</translation>
    </message>
    <message>
        <source>Horizontal Scale</source>
        <translation>Skala pozioma</translation>
    </message>
    <message>
        <source>Number to multiple actual image width on</source>
        <translation>Liczba, przez którą zostanie pomnożona szerokość obrazu</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>Wczytywanie nie powiodło się</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>Błąd podczas wczytywania pliku</translation>
    </message>
    <message>
        <source>Could not load image
Not enough memory to load bitmap image
Do you want to save it?</source>
        <translation>Nie można wczytać obrazu
Za mało pamięci, aby wczytać bitmapę
Czy chcesz go zapisać?</translation>
    </message>
    <message>
        <source>Image Manager</source>
        <translation>Image Manager</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>Dokumenty</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>Efekty</translation>
    </message>
    <message>
        <source>Changes the image zoom</source>
        <translation>Zmienia powiększenie obrazu</translation>
    </message>
    <message>
        <source>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Changes the image zoom.&lt;/p&gt;</source>
        <translation>&lt;p&gt;Powiększenie&lt;p&gt;&lt;p&gt;Zmienia powiększenie obrazu.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Plik</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Edycja</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Widok</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>Powięk&amp;szenie</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>&amp;Obraz</translation>
    </message>
    <message>
        <source>Image Manager Toolbar</source>
        <translation>Pasek narzędzi programu Image Manager</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>Więcej poleceń</translation>
    </message>
    <message>
        <source>Page 1 of %1</source>
        <translation>Strona 1 z %1</translation>
    </message>
    <message>
        <source>%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. Save?</source>
        <translation>Plik %1 zawiera więcej obrazów (%2) i nie wszystkie są otwarte. To, co nie jest otwarte, nie może zostać zachowane. Zapisać?</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>&amp;Narzędzia</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>Drukowanie...</translation>
    </message>
</context>
<context>
    <name>MailForm</name>
    <message>
        <source>Send Image By E-mail</source>
        <translation>Wyślij obraz pocztą e-mail</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>Serwer:</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>Serwer</translation>
    </message>
    <message>
        <source>Login:</source>
        <translation>Login:</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>Login</translation>
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
        <translation>Hasło:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>Hasło</translation>
    </message>
    <message>
        <source>From:</source>
        <translation>Od:</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Od</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>Do:</translation>
    </message>
    <message>
        <source>To</source>
        <translation>Do</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>Temat:</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Temat</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Wiadomość</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Zapisz jako...</translation>
    </message>
    <message>
        <source>Delete After Send</source>
        <translation>Usuń po wysłaniu</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Wyślij</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>Brak operacji w toku</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>Image must be saved before sending</source>
        <translation>Przed wysłaniem obraz musi zostać zapisany</translation>
    </message>
    <message>
        <source>Looking up mail servers</source>
        <translation>Wyszukiwanie serwerów poczty</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 już istnieje.
Czy chcesz go zastąpić?</translation>
    </message>
</context>
<context>
    <name>Smtp</name>
    <message>
        <source>The attached file cannot be read.</source>
        <translation>Nie można odczytać załączonego pliku.</translation>
    </message>
    <message>
        <source>The domain %1 takes no mail.</source>
        <translation>Domena %1 nie przyjmuje poczty.</translation>
    </message>
    <message>
        <source>Connecting to:</source>
        <translation>Łączenie z:</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>Połączono z %1</translation>
    </message>
    <message>
        <source>The mail server offers no login that this program knows.</source>
        <translation>Serwer poczty nie oferuje sposobu logowania znanego temu programowi.</translation>
    </message>
    <message>
        <source>Authentication...</source>
        <translation>Uwierzytelnianie...</translation>
    </message>
    <message>
        <source>Sending mail...</source>
        <translation>Wysyłanie poczty...</translation>
    </message>
    <message>
        <source>Message sent</source>
        <translation>Wiadomość wysłana</translation>
    </message>
    <message>
        <source>Unexpected reply from SMTP server:

</source>
        <translation>Nieoczekiwana odpowiedź serwera SMTP:

</translation>
    </message>
    <message>
        <source>Mail system error</source>
        <translation>Błąd systemu poczty</translation>
    </message>
    <message>
        <source>The connection to the mail server is lost.</source>
        <translation>Połączenie z serwerem poczty zostało utracone.</translation>
    </message>
    <message>
        <source>No connection to %1.</source>
        <translation>Brak połączenia z %1.</translation>
    </message>
    <message>
        <source>Message not sent</source>
        <translation>Wiadomość nie została wysłana</translation>
    </message>
    <message>
        <source>The mail server does not answer.</source>
        <translation>Serwer poczty nie odpowiada.</translation>
    </message>
    <message>
        <source>A login is sent to no server but the one that is filled in.
Fill in &quot;Server&quot;, or empty &quot;Login&quot;.</source>
        <translation>Dane logowania są wysyłane tylko do podanego serwera.
Wypełnij „Serwer” albo opróżnij „Login”.</translation>
    </message>
    <message>
        <source>This address cannot be used:
%1</source>
        <translation>Nie można użyć tego adresu:
%1</translation>
    </message>
    <message>
        <source>The mail servers of %1 cannot be looked up at present.</source>
        <translation>W tej chwili nie można ustalić serwerów poczty domeny %1.</translation>
    </message>
</context>
</TS>
