10 ' Plain COLOR restores the palette and the picture.
20 SCREEN 3:CLS 3:LINE(0,100)-(300,300),1,BF,2:COLOR=(1,2):COLOR=(2,5):COLOR
30 LINE(310,100)-(600,300),1,BF,2
