10 PRINT AKCNV$("A1!~ b");AKCNV$("ｱﾞ｡");AKCNV$("あ漢");"[";AKCNV$("");"]"
