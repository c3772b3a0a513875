<?php

/**
 * Drops what is offered as an update of this file, for WordPress before 5.8, which does not know "Update URI", and for
 * whoever offers one all the same.
 *
 * @param mixed $offers What WordPress and other plugins have found for the plugins of the site.
 * @return mixed
 */
function brasslet_refuse_updates( $offers ) {
	$file = plugin_basename( __FILE__ );
	foreach ( array( 'response', 'no_update' ) as $list ) {
		if ( is_object( $offers ) && isset( $offers->$list ) && is_array( $offers->$list ) ) {
			$offers->$list = array_diff_key( $offers->$list, array( $file => true ) );
		}
	}
	return $offers;
}
