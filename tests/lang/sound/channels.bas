10 PLAY "C","D","E","F","G","A"
