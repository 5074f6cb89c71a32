10 PRINT ASC("A");ASC("AB");ASC("");ASC("あ");ASC("ｱ")
