10 ' Two pages of 400 lines; drawing on the hidden one does not show.
20 SCREEN 3,0,1,17:CLS 3:LINE(20,30)-(600,380),3,B:SCREEN ,,0:CLS 2:LINE(0,0)-(639,399),7,BF
