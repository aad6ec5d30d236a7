rtl
/
// comment
-y rtl / -work lib rtl/crc8.vhd +libext+.v -v rtl/ram.v
