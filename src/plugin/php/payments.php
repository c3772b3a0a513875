<?php

/*
 * Payments handed over: wallets ask for outputs, and deliver the signed transaction to this site, which hands it to a
 * broadcaster. Off until the owner of the site switches it on, and names the broadcaster.
 *
 * The switch is one option that WordPress loads with every page, so that asking for it takes no query of its own.
 */
define( 'BRASSLET_PAYMENTS', 'brasslet_payments' );
define( 'BRASSLET_BROADCASTER', '@BRASSLET_BROADCASTER@' );

/*
 * An https address of a host name: without user, query and fragment, which have no place before "/v1/tx".
 */
define( 'BRASSLET_BROADCASTER_RULE', '#^https://[a-z0-9]([a-z0-9.-]{0,252})(:\d{1,5})?(/[A-Za-z0-9._~-]+){0,8}$#D' );

/**
 * Reads the switch.
 *
 * Not get_option(): where nothing was ever switched, that asks the database for the missing row with every request.
 *
 * @return array Whether payments are "on", the "broadcaster", and a "secret" that most sites do without; see
 *               brasslet_reference_key().
 */
function brasslet_payments() {
	$stored = maybe_unserialize( wp_load_alloptions()[ BRASSLET_PAYMENTS ] ?? '' );
	$stored = is_array( $stored ) ? $stored : array();
	$found  = array(
		'on'          => true === ( $stored['on'] ?? false ),
		'broadcaster' => brasslet_string( $stored['broadcaster'] ?? '' ),
		'secret'      => brasslet_string( $stored['secret'] ?? '' ),
	);
	// Also where a site has moved, with its database, to a PHP that cannot count so far.
	$found['on'] = $found['on'] && '' === brasslet_payments_obstacle( $found['broadcaster'] );
	return $found;
}

/**
 * Says what keeps payments from being switched on.
 *
 * @param string $broadcaster The address of the broadcaster.
 * @param int    $int_size    How many bytes PHP has for a whole number.
 * @return string A sentence for the owner of the site; empty when nothing does.
 */
function brasslet_payments_obstacle( $broadcaster, $int_size = PHP_INT_SIZE ) {
	if ( $int_size < 8 ) {
		return 'The PHP of this site counts with 32 bits, too few for amounts. Ask your host for a 64-bit PHP.';
	}
	if ( 1 !== preg_match( BRASSLET_BROADCASTER_RULE, $broadcaster ) ) {
		return 'Type the address of the broadcaster: it begins with "https://", and has no user, "?" or "#" in it.';
	}
	return '';
}

/**
 * Adds what wallets that hand payments over look for, when that is switched on.
 *
 * @param string $rest The URL that the routes of the plugin begin with.
 * @return string[] URLs by capability.
 */
function brasslet_payment_capabilities( $rest ) {
	if ( ! brasslet_payments()['on'] ) {
		return array();
	}
	return array(
		// P2P Payment Destination, P2P Transactions, Verify Public Key Owner.
		'2a40af698840' => $rest . '/p2p-payment-destination/{alias}',
		'5f1323cddf31' => $rest . '/receive-transaction/{alias}',
		'a9f510c16bde' => $rest . '/verify-public-key/{alias}/{pubkey}',
	);
}

/**
 * Registers the routes of those capabilities; there are none while it is switched off.
 */
function brasslet_register_payment_routes() {
	if ( ! brasslet_payments()['on'] ) {
		return;
	}
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/p2p-payment-destination/' . BRASSLET_ALIAS_ROUTE,
		array(
			'methods'             => 'POST',
			'permission_callback' => '__return_true',
			'callback'            => 'brasslet_offer_outputs',
		)
	);
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/receive-transaction/' . BRASSLET_ALIAS_ROUTE,
		array(
			'methods'             => 'POST',
			'permission_callback' => '__return_true',
			'callback'            => 'brasslet_receive_transaction',
		)
	);
	register_rest_route(
		BRASSLET_NAMESPACE,
		'/verify-public-key/' . BRASSLET_ALIAS_ROUTE . '/(?P<pubkey>[0-9A-Za-z]+)',
		array(
			'methods'             => 'GET',
			'permission_callback' => '__return_true',
			'callback'            => 'brasslet_verify_key',
		)
	);
}
