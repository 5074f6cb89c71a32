10 ' A filled box of the whole screen, and a frame round its very border.
20 SCREEN 3:CLS 3
30 LINE(0,0)-(639,399),7,BF,4
40 LINE(1,1)-(638,398),0,B
