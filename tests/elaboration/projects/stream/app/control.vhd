library ieee; use ieee.std_logic_1164.all; use ieee.numeric_std.all;
library common; use common.common_pkg.all;
library axis; use axis.axis_pkg.all;
entity control is
  generic (LIMIT : level_t := 12);
  port (
    clk, rst : in  std_logic;
    beat     : in  beat_t;
    status   : out status_t
  );
end entity;
