10 PRINT KACNV$("Ａｂ１！～　");"]";KACNV$("アー。ン");"]";KACNV$("”’￥");"]";KACNV$("");"]";KACNV$("＿｀")
