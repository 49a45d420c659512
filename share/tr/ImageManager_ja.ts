<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name>ConfigureToolsDialog</name>
    <message>
        <source>Configure Tools</source>
        <translation>ツールの設定</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>グラフィックエディター</translation>
    </message>
    <message>
        <source>Graphics Editor Command:</source>
        <translation>グラフィックエディターのコマンド:</translation>
    </message>
    <message>
        <source>Graphics Editor Input &lt;BMP&gt;:</source>
        <translation>グラフィックエディターの入力 &lt;BMP&gt;:</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>文字認識 (OCR)</translation>
    </message>
    <message>
        <source>OCR Command:</source>
        <translation>文字認識のコマンド:</translation>
    </message>
    <message>
        <source>OCR Input &lt;PBM&gt;:</source>
        <translation>文字認識の入力 &lt;PBM&gt;:</translation>
    </message>
    <message>
        <source>OCR Output / Text Editor Input &lt;TXT&gt;):</source>
        <translation>文字認識の出力 / テキストエディターの入力 &lt;TXT&gt;:</translation>
    </message>
    <message>
        <source>Text Editor Command:</source>
        <translation>テキストエディターのコマンド:</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
</context>
<context>
    <name>FtpForm</name>
    <message>
        <source>Upload Image by FTP</source>
        <translation>FTP で画像をアップロード</translation>
    </message>
    <message>
        <source>Remote Host:</source>
        <translation>リモートホスト:</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>ポート:</translation>
    </message>
    <message>
        <source>Remote Path:</source>
        <translation>リモートパス:</translation>
    </message>
    <message>
        <source>Username:</source>
        <translation>ユーザー名:</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>パスワード:</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>名前を付けて保存...</translation>
    </message>
    <message>
        <source>&amp;Upload</source>
        <translation>アップロード(&amp;U)</translation>
    </message>
    <message>
        <source>Delete after Upload</source>
        <translation>アップロード後に削除</translation>
    </message>
    <message>
        <source>Progress</source>
        <translation>進行状況</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>実行中の操作はありません</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>ERROR</source>
        <translation>エラー</translation>
    </message>
    <message>
        <source>Read: %1</source>
        <translation>読み込み: %1</translation>
    </message>
    <message>
        <source>Write: %1</source>
        <translation>書き込み: %1</translation>
    </message>
</context>
<context>
    <name>Global String Table</name>
    <message>
        <source>New</source>
        <translation>新規</translation>
    </message>
    <message>
        <source>&amp;New...</source>
        <translation>新規(&amp;N)...</translation>
    </message>
    <message>
        <source>Creates new empty image</source>
        <translation>新しい空の画像を作成します</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>開く</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>開く(&amp;O)...</translation>
    </message>
    <message>
        <source>Opens an existing image file</source>
        <translation>既存の画像ファイルを開きます</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Saves current image to disk file</source>
        <translation>現在の画像をファイルに保存します</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>名前を付けて保存</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>名前を付けて保存(&amp;A)...</translation>
    </message>
    <message>
        <source>Saves current image with another file name</source>
        <translation>現在の画像を別の名前で保存します</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>すべて保存</translation>
    </message>
    <message>
        <source>Save A&amp;ll...</source>
        <translation>すべて保存(&amp;L)...</translation>
    </message>
    <message>
        <source>Saves all unsaved images</source>
        <translation>未保存の画像をすべて保存します</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>印刷</translation>
    </message>
    <message>
        <source>&amp;Print</source>
        <translation>印刷(&amp;P)</translation>
    </message>
    <message>
        <source>Prints current image</source>
        <translation>現在の画像を印刷します</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message>
        <source>Closes current image</source>
        <translation>現在の画像を閉じます</translation>
    </message>
    <message>
        <source>Close All</source>
        <translation>すべて閉じる(&amp;E)</translation>
    </message>
    <message>
        <source>Closes all images</source>
        <translation>すべての画像を閉じます</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>終了</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>終了(&amp;X)</translation>
    </message>
    <message>
        <source>Exits the program</source>
        <translation>プログラムを終了します</translation>
    </message>
    <message>
        <source>Labels</source>
        <translation>ラベル</translation>
    </message>
    <message>
        <source>&amp;Labels</source>
        <translation>ラベル(&amp;L)</translation>
    </message>
    <message>
        <source>Shows or hides text labels on toolbar buttons</source>
        <translation>ツールバーのボタンのラベルを表示または非表示にします</translation>
    </message>
    <message>
        <source>Big Pixmaps</source>
        <translation>大きいアイコン</translation>
    </message>
    <message>
        <source>&amp;Big Pixmaps</source>
        <translation>大きいアイコン(&amp;B)</translation>
    </message>
    <message>
        <source>Sets the size of pixmaps on toolbar buttons</source>
        <translation>ツールバーのアイコンの大きさを設定します</translation>
    </message>
    <message>
        <source>Tooltips</source>
        <translation>ツールチップ</translation>
    </message>
    <message>
        <source>&amp;Tooltips</source>
        <translation>ツールチップ(&amp;T)</translation>
    </message>
    <message>
        <source>Shows or hides tooltips on toolbar buttons</source>
        <translation>ツールバーのボタンのツールチップを表示または非表示にします</translation>
    </message>
    <message>
        <source>Movable Toolbars</source>
        <translation>ツールバーの移動を許可</translation>
    </message>
    <message>
        <source>&amp;Movable Toolbars</source>
        <translation>ツールバーの移動を許可(&amp;M)</translation>
    </message>
    <message>
        <source>Enables or disables toolbars movement</source>
        <translation>ツールバーの移動を許可または禁止します</translation>
    </message>
    <message>
        <source>Save Layout</source>
        <translation>レイアウトを保存</translation>
    </message>
    <message>
        <source>&amp;Save Layout</source>
        <translation>レイアウトを保存(&amp;S)</translation>
    </message>
    <message>
        <source>Saves current window layout</source>
        <translation>現在のウィンドウのレイアウトを保存します</translation>
    </message>
    <message>
        <source>Reset Layout</source>
        <translation>レイアウトをリセット</translation>
    </message>
    <message>
        <source>&amp;Reset Layout</source>
        <translation>レイアウトをリセット(&amp;R)</translation>
    </message>
    <message>
        <source>Set default window layout</source>
        <translation>ウィンドウを既定のレイアウトに戻します</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>元に戻す</translation>
    </message>
    <message>
        <source>U&amp;ndo</source>
        <translation>元に戻す(&amp;U)</translation>
    </message>
    <message>
        <source>Undoes last edit operation</source>
        <translation>直前の編集操作を元に戻します</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>やり直し</translation>
    </message>
    <message>
        <source>R&amp;edo</source>
        <translation>やり直し(&amp;R)</translation>
    </message>
    <message>
        <source>Redoes last undone operation</source>
        <translation>直前に元に戻した操作をやり直します</translation>
    </message>
    <message>
        <source>Scroll</source>
        <translation>スクロール</translation>
    </message>
    <message>
        <source>&amp;Scroll</source>
        <translation>スクロール(&amp;S)</translation>
    </message>
    <message>
        <source>Activates image free-hand scrolling</source>
        <translation>画像をドラッグして自由にスクロールできるようにします</translation>
    </message>
    <message>
        <source>Zoom Out</source>
        <translation>縮小表示</translation>
    </message>
    <message>
        <source>Zoom &amp;Out</source>
        <translation>縮小表示(&amp;O)</translation>
    </message>
    <message>
        <source>Zooms current image out</source>
        <translation>現在の画像を縮小して表示します</translation>
    </message>
    <message>
        <source>Zoom In</source>
        <translation>拡大表示</translation>
    </message>
    <message>
        <source>Zoom &amp;In</source>
        <translation>拡大表示(&amp;I)</translation>
    </message>
    <message>
        <source>Zooms current image in</source>
        <translation>現在の画像を拡大して表示します</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>拡大・縮小</translation>
    </message>
    <message>
        <source>&amp;Scale</source>
        <translation>拡大・縮小(&amp;S)</translation>
    </message>
    <message>
        <source>Displays Scale dialog to set image scale value</source>
        <translation>画像の倍率を設定するダイアログを表示します</translation>
    </message>
    <message>
        <source>Horizontally</source>
        <translation>横方向</translation>
    </message>
    <message>
        <source>&amp;Horizontally...</source>
        <translation>横方向(&amp;H)...</translation>
    </message>
    <message>
        <source>Vertically</source>
        <translation>縦方向</translation>
    </message>
    <message>
        <source>&amp;Vertically...</source>
        <translation>縦方向(&amp;V)...</translation>
    </message>
    <message>
        <source>Proportionally</source>
        <translation>縦横比を保持</translation>
    </message>
    <message>
        <source>&amp;Proportionally...</source>
        <translation>縦横比を保持(&amp;P)...</translation>
    </message>
    <message>
        <source>Resize</source>
        <translation>サイズ変更</translation>
    </message>
    <message>
        <source>&amp;Resize...</source>
        <translation>サイズ変更(&amp;R)...</translation>
    </message>
    <message>
        <source>Displays Resize dialog to set image size in pixels</source>
        <translation>画像のサイズをピクセル単位で設定するダイアログを表示します</translation>
    </message>
    <message>
        <source>Rotate</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>&amp;Rotate</source>
        <translation>回転(&amp;R)</translation>
    </message>
    <message>
        <source>Rotates the image</source>
        <translation>画像を回転します</translation>
    </message>
    <message>
        <source>90 degrees CCW</source>
        <translation>左に90度</translation>
    </message>
    <message>
        <source>9&amp;0 degrees CCW</source>
        <translation>左に90度(&amp;L)</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees counter-clock-wise</source>
        <translation>画像を反時計回りに90度回転します</translation>
    </message>
    <message>
        <source>90 degrees CW</source>
        <translation>右に90度</translation>
    </message>
    <message>
        <source>&amp;90 degrees CW</source>
        <translation>右に90度(&amp;R)</translation>
    </message>
    <message>
        <source>Rotates the image to 90 degrees clock-wise</source>
        <translation>画像を時計回りに90度回転します</translation>
    </message>
    <message>
        <source>180 degrees</source>
        <translation>180度</translation>
    </message>
    <message>
        <source>&amp;180 degrees</source>
        <translation>180度(&amp;1)</translation>
    </message>
    <message>
        <source>Rotates the image to 180 degrees</source>
        <translation>画像を180度回転します</translation>
    </message>
    <message>
        <source>Flip</source>
        <translation>反転</translation>
    </message>
    <message>
        <source>&amp;Flip</source>
        <translation>反転(&amp;F)</translation>
    </message>
    <message>
        <source>Flips the image</source>
        <translation>画像を反転します</translation>
    </message>
    <message>
        <source>&amp;Horizontally</source>
        <translation>左右に(&amp;H)</translation>
    </message>
    <message>
        <source>Flips the image horizontally (&quot;mirror on the wall&quot;)</source>
        <translation>画像を左右に反転します（「壁の鏡」）</translation>
    </message>
    <message>
        <source>&amp;Vertically</source>
        <translation>上下に(&amp;V)</translation>
    </message>
    <message>
        <source>Flips the image vertically (&quot;mirror on the floor&quot;)</source>
        <translation>画像を上下に反転します（「床の鏡」）</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>色の反転</translation>
    </message>
    <message>
        <source>&amp;Invert</source>
        <translation>色の反転(&amp;I)</translation>
    </message>
    <message>
        <source>Inverts image colors</source>
        <translation>画像の色を反転します</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>明るさ</translation>
    </message>
    <message>
        <source>&amp;Brightness...</source>
        <translation>明るさ(&amp;B)...</translation>
    </message>
    <message>
        <source>Sets image brightness</source>
        <translation>画像の明るさを設定します</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>コントラスト</translation>
    </message>
    <message>
        <source>&amp;Contrast...</source>
        <translation>コントラスト(&amp;T)...</translation>
    </message>
    <message>
        <source>Sets image contrast</source>
        <translation>画像のコントラストを設定します</translation>
    </message>
    <message>
        <source>Color Bit Depth</source>
        <translation>色深度</translation>
    </message>
    <message>
        <source>&amp;Color Bit Depth</source>
        <translation>色深度(&amp;C)</translation>
    </message>
    <message>
        <source>Sets image color depth</source>
        <translation>画像の色深度を設定します</translation>
    </message>
    <message>
        <source>1 bit</source>
        <translation>1ビット</translation>
    </message>
    <message>
        <source>&amp;1 bit</source>
        <translation>1ビット(&amp;1)</translation>
    </message>
    <message>
        <source>Sets image color depth to 1 bit</source>
        <translation>画像の色深度を1ビットに設定します</translation>
    </message>
    <message>
        <source>8 bit</source>
        <translation>8ビット</translation>
    </message>
    <message>
        <source>&amp;8 bit</source>
        <translation>8ビット(&amp;8)</translation>
    </message>
    <message>
        <source>Sets image color depth to 8 bit</source>
        <translation>画像の色深度を8ビットに設定します</translation>
    </message>
    <message>
        <source>32 bit</source>
        <translation>32ビット</translation>
    </message>
    <message>
        <source>&amp;32 bit</source>
        <translation>32ビット(&amp;3)</translation>
    </message>
    <message>
        <source>Sets image color depth to 32 bit</source>
        <translation>画像の色深度を32ビットに設定します</translation>
    </message>
    <message>
        <source>Crop</source>
        <translation>切り抜き</translation>
    </message>
    <message>
        <source>C&amp;rop</source>
        <translation>切り抜き(&amp;O)</translation>
    </message>
    <message>
        <source>Creates a new image from the selection</source>
        <translation>選択範囲から新しい画像を作成します</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>プロパティ</translation>
    </message>
    <message>
        <source>&amp;Properties...</source>
        <translation>プロパティ(&amp;P)...</translation>
    </message>
    <message>
        <source>Displays Properties dialog to set image properties</source>
        <translation>画像のプロパティを表示します</translation>
    </message>
    <message>
        <source>Graphics Editor</source>
        <translation>グラフィックエディター</translation>
    </message>
    <message>
        <source>&amp;Graphics Editor</source>
        <translation>グラフィックエディター(&amp;G)</translation>
    </message>
    <message>
        <source>Starts external graphics editor with the image</source>
        <translation>画像を外部のグラフィックエディターで開きます</translation>
    </message>
    <message>
        <source>OCR</source>
        <translation>文字認識</translation>
    </message>
    <message>
        <source>&amp;OCR</source>
        <translation>文字認識(&amp;O)</translation>
    </message>
    <message>
        <source>Starts external Optical Character Recognition (OCR) program</source>
        <translation>外部の文字認識 (OCR) プログラムを起動します</translation>
    </message>
    <message>
        <source>Send by E-mail</source>
        <translation>メールで送信</translation>
    </message>
    <message>
        <source>&amp;Send by E-mail...</source>
        <translation>メールで送信(&amp;S)...</translation>
    </message>
    <message>
        <source>Sends the image by E-mail</source>
        <translation>画像をメールで送信します</translation>
    </message>
    <message>
        <source>Upload by FTP</source>
        <translation>FTPでアップロード</translation>
    </message>
    <message>
        <source>&amp;Upload by FTP...</source>
        <translation>FTPでアップロード(&amp;U)...</translation>
    </message>
    <message>
        <source>Uploads the image to remote FTP server</source>
        <translation>画像をリモートのFTPサーバーにアップロードします</translation>
    </message>
    <message>
        <source>Configure Tools</source>
        <translation>ツールの設定</translation>
    </message>
    <message>
        <source>&amp;Configure Tools...</source>
        <translation>ツールの設定(&amp;C)...</translation>
    </message>
    <message>
        <source>Displays tools configuration dialog</source>
        <translation>ツールの設定ダイアログを表示します</translation>
    </message>
</context>
<context>
    <name>ImageManager</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>This operation cannot be undone or redone. Continue?</source>
        <translation>この操作は元に戻すこともやり直すこともできません。続行しますか?</translation>
    </message>
    <message>
        <source>Error saving Undo/Redo information</source>
        <translation>元に戻す/やり直しの情報の保存中にエラーが発生しました</translation>
    </message>
    <message>
        <source>Saving Undo/Redo information...</source>
        <translation>元に戻す/やり直しの情報を保存しています...</translation>
    </message>
    <message>
        <source>Changing the image...</source>
        <translation>画像を変更しています...</translation>
    </message>
    <message>
        <source>Rollback operation...</source>
        <translation>操作を取り消しています...</translation>
    </message>
    <message>
        <source>Undoing operation...</source>
        <translation>操作を元に戻しています...</translation>
    </message>
    <message>
        <source>Redoing operation...</source>
        <translation>操作をやり直しています...</translation>
    </message>
    <message>
        <source>Open failed</source>
        <translation>開けませんでした</translation>
    </message>
    <message>
        <source>Error opening file</source>
        <translation>ファイルを開くときにエラーが発生しました</translation>
    </message>
    <message>
        <source>Save failed</source>
        <translation>保存できませんでした</translation>
    </message>
    <message>
        <source>Error saving image: %1</source>
        <translation>画像の保存中にエラーが発生しました: %1</translation>
    </message>
    <message>
        <source>Image &apos;%1&apos; has been changed.
Do you want to save it?</source>
        <translation>画像「%1」は変更されています。
保存しますか?</translation>
    </message>
    <message>
        <source>Do you want to save the image?</source>
        <translation>画像を保存しますか?</translation>
    </message>
    <message>
        <source>Image Depth 1 bit</source>
        <translation>色深度 1ビット</translation>
    </message>
    <message>
        <source>Image Depth 8 bit</source>
        <translation>色深度 8ビット</translation>
    </message>
    <message>
        <source>Image Depth 32 bit</source>
        <translation>色深度 32ビット</translation>
    </message>
    <message>
        <source>Invert</source>
        <translation>色の反転</translation>
    </message>
    <message>
        <source>Brightness</source>
        <translation>明るさ</translation>
    </message>
    <message>
        <source>Set Brightness</source>
        <translation>明るさの設定</translation>
    </message>
    <message>
        <source>Contrast</source>
        <translation>コントラスト</translation>
    </message>
    <message>
        <source>Set Contrast</source>
        <translation>コントラストの設定</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CCW</source>
        <translation>左に90度回転</translation>
    </message>
    <message>
        <source>Rotate 180 degrees</source>
        <translation>180度回転</translation>
    </message>
    <message>
        <source>Rotate 90 degrees CW</source>
        <translation>右に90度回転</translation>
    </message>
    <message>
        <source>Flip Vertically</source>
        <translation>上下反転</translation>
    </message>
    <message>
        <source>Flip Horizontally</source>
        <translation>左右反転</translation>
    </message>
    <message>
        <source>Scale Proportionally</source>
        <translation>縦横比を保持して拡大・縮小</translation>
    </message>
    <message>
        <source>Proportional Scale</source>
        <translation>縦横の倍率</translation>
    </message>
    <message>
        <source>Number to multiple actual image height and width on</source>
        <translation>現在の画像の高さと幅に掛ける数値</translation>
    </message>
    <message>
        <source>Scale Vertically</source>
        <translation>縦方向の拡大・縮小</translation>
    </message>
    <message>
        <source>Vertical Scale</source>
        <translation>縦の倍率</translation>
    </message>
    <message>
        <source>Number to multiple actual image height on</source>
        <translation>現在の画像の高さに掛ける数値</translation>
    </message>
    <message>
        <source>Scale Horizontally</source>
        <translation>横方向の拡大・縮小</translation>
    </message>
    <message>
        <source>Horizontal Scale</source>
        <translation>横の倍率</translation>
    </message>
    <message>
        <source>Number to multiple actual image width on</source>
        <translation>現在の画像の幅に掛ける数値</translation>
    </message>
    <message>
        <source>Load failed</source>
        <translation>読み込めませんでした</translation>
    </message>
    <message>
        <source>Error loading file</source>
        <translation>ファイルの読み込み中にエラーが発生しました</translation>
    </message>
    <message>
        <source>Could not load image
Not enough memory to load bitmap image
Do you want to save it?</source>
        <translation>画像を読み込めませんでした
ビットマップ画像を読み込むためのメモリが足りません
保存しますか?</translation>
    </message>
    <message>
        <source>Image Manager</source>
        <translation>Image Manager</translation>
    </message>
    <message>
        <source>Documents</source>
        <translation>ドキュメント</translation>
    </message>
    <message>
        <source>Effects</source>
        <translation>効果</translation>
    </message>
    <message>
        <source>Changes the image zoom</source>
        <translation>画像の表示倍率を変更します</translation>
    </message>
    <message>
        <source>&lt;p&gt;Zoom&lt;p&gt;&lt;p&gt;Changes the image zoom.&lt;/p&gt;</source>
        <translation>&lt;p&gt;ズーム&lt;p&gt;&lt;p&gt;画像の表示倍率を変更します。&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>編集(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>表示(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Zoom</source>
        <translation>ズーム(&amp;Z)</translation>
    </message>
    <message>
        <source>&amp;Image</source>
        <translation>画像(&amp;I)</translation>
    </message>
    <message>
        <source>Image Manager Toolbar</source>
        <translation>Image Manager ツールバー</translation>
    </message>
    <message>
        <source>More commands</source>
        <translation>その他のコマンド</translation>
    </message>
    <message>
        <source>Page 1 of %1</source>
        <translation>ページ 1 / %1</translation>
    </message>
    <message>
        <source>%1 holds %2 pictures, and not all of them are open. What is not open cannot be kept. Save?</source>
        <translation>%1 には %2 枚の画像が含まれていますが、すべてが開かれているわけではありません。開かれていないものは残せません。保存しますか?</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>ツール(&amp;T)</translation>
    </message>
    <message>
        <source>Printing...</source>
        <translation>印刷しています...</translation>
    </message>
</context>
<context>
    <name>MailForm</name>
    <message>
        <source>Send Image By E-mail</source>
        <translation>画像をメールで送信</translation>
    </message>
    <message>
        <source>Server:</source>
        <translation>サーバー:</translation>
    </message>
    <message>
        <source>Server</source>
        <translation>サーバー</translation>
    </message>
    <message>
        <source>Login:</source>
        <translation>ログイン名:</translation>
    </message>
    <message>
        <source>Login</source>
        <translation>ログイン名</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>ポート:</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>ポート</translation>
    </message>
    <message>
        <source>Password:</source>
        <translation>パスワード:</translation>
    </message>
    <message>
        <source>Password</source>
        <translation>パスワード</translation>
    </message>
    <message>
        <source>From:</source>
        <translation>差出人:</translation>
    </message>
    <message>
        <source>From</source>
        <translation>差出人</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>宛先:</translation>
    </message>
    <message>
        <source>To</source>
        <translation>宛先</translation>
    </message>
    <message>
        <source>Subject:</source>
        <translation>件名:</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>件名</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>本文</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>名前を付けて保存...</translation>
    </message>
    <message>
        <source>Delete After Send</source>
        <translation>送信後に削除</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>送信</translation>
    </message>
    <message>
        <source>No Operation in Progress</source>
        <translation>実行中の処理はありません</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>Image must be saved before sending</source>
        <translation>送信する前に画像を保存してください</translation>
    </message>
    <message>
        <source>Looking up mail servers</source>
        <translation>メールサーバーを検索しています</translation>
    </message>
</context>
<context>
    <name>QFileDialog</name>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 はすでに存在します。
置き換えますか?</translation>
    </message>
</context>
<context>
    <name>Smtp</name>
    <message>
        <source>The attached file cannot be read.</source>
        <translation>添付ファイルを読み込めません。</translation>
    </message>
    <message>
        <source>The domain %1 takes no mail.</source>
        <translation>ドメイン %1 はメールを受け付けていません。</translation>
    </message>
    <message>
        <source>Connecting to:</source>
        <translation>接続先:</translation>
    </message>
    <message>
        <source>Connected to %1</source>
        <translation>%1 に接続しました</translation>
    </message>
    <message>
        <source>The mail server offers no login that this program knows.</source>
        <translation>メールサーバーは、このプログラムが対応するログイン方法を提供していません。</translation>
    </message>
    <message>
        <source>Authentication...</source>
        <translation>認証しています...</translation>
    </message>
    <message>
        <source>Sending mail...</source>
        <translation>メールを送信しています...</translation>
    </message>
    <message>
        <source>Message sent</source>
        <translation>メッセージを送信しました</translation>
    </message>
    <message>
        <source>Unexpected reply from SMTP server:

</source>
        <translation>SMTP サーバーから予期しない応答がありました:

</translation>
    </message>
    <message>
        <source>Mail system error</source>
        <translation>メールシステムのエラー</translation>
    </message>
    <message>
        <source>The connection to the mail server is lost.</source>
        <translation>メールサーバーとの接続が切れました。</translation>
    </message>
    <message>
        <source>No connection to %1.</source>
        <translation>%1 に接続できません。</translation>
    </message>
    <message>
        <source>Message not sent</source>
        <translation>メッセージは送信されませんでした</translation>
    </message>
    <message>
        <source>The mail server does not answer.</source>
        <translation>メールサーバーが応答しません。</translation>
    </message>
    <message>
        <source>A login is sent to no server but the one that is filled in.
Fill in &quot;Server&quot;, or empty &quot;Login&quot;.</source>
        <translation>ログイン情報は、入力されたサーバーにのみ送信されます。
「サーバー」を入力するか、「ログイン名」を空にしてください。</translation>
    </message>
    <message>
        <source>This address cannot be used:
%1</source>
        <translation>このアドレスは使用できません:
%1</translation>
    </message>
    <message>
        <source>The mail servers of %1 cannot be looked up at present.</source>
        <translation>現在、%1 のメールサーバーを調べることができません。</translation>
    </message>
</context>
</TS>
