10 PRINT JIS$("AB");" ";JIS$("ABC");" ";JIS$("ｱ")
