// Types that the SystemVerilog parts share.

// What the bridge is waiting for.
typedef enum logic [2:0] {
    BRIDGE_IDLE,
    BRIDGE_ADDRESS_HIGH,
    BRIDGE_ADDRESS_LOW,
    BRIDGE_DATA,
    BRIDGE_REQUEST,
    BRIDGE_REPLY
} bridge_state_t;

typedef struct packed {
    logic        write;
    logic [15:0] address;
    logic [7:0]  data;
} bus_transfer_t;
